#pragma once

#include "ProjectModels.h"

#include <QtGlobal>

namespace quenara::bench {

/// How big a generated project is.
struct ProjectSize
{
    int slideCount = 10'000;
    int itemCount = 200; ///< the slides are spread over them as evenly as they divide
    int imageCount = 0; ///< of all slides, as evenly; at most one a slide
    qsizetype imageBytes = 3'000'000; ///< of one image, before base64
};

/// A project of made-up texts with a template of the catalogue a slide; images are noise, which
/// compresses as little as a photograph, and stand in the background of their slides. The same seed
/// gives the same project but for its identifiers.
ZelvoProject generateProject(const ProjectSize &size, quint32 seed = 1);

} // namespace quenara::bench
