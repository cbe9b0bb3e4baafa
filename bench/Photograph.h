#pragma once

#include "SlideMedia.h"

#include <QtGlobal>

namespace quenara::bench {

/// A JPEG of twelve megapixels with some detail everywhere; another one for each \a seed.
SlideMedia photograph(quint32 seed = 1);

} // namespace quenara::bench
