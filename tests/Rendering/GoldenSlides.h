#pragma once

#include "SlideRendererView.h"

#include <QList>
#include <QSize>
#include <QString>

#include <array>

namespace quenara::test {

/// Something the renderer shows, under the name of its image.
struct GoldenSlide
{
    QString name;
    SlideRendererView view;
};

/// What there is a golden image of. All text is in the faces that are compiled in, so that it
/// looks alike on every machine.
QList<GoldenSlide> goldenSlides();

/// What is drawn in the faces of the machine and can only be looked at.
QList<GoldenSlide> machineSlides();

/// Likewise: a verse in each of several scripts in each template.
QList<GoldenSlide> scriptSlides();

inline constexpr std::array goldenSizes = {QSize(480, 270), QSize(960, 540)};

/// The largest difference of any channel of any pixel that is none. The faces are compiled in and
/// not hinted, so that only the last bits of anti-aliasing, gradients and blurs may differ from one
/// processor or version of Qt to the next. Two percent more or less of any opacity over its
/// opposite is more.
inline constexpr int goldenTolerance = 4;

/// The file name of a slide's image of \a size.
QString goldenFileName(const GoldenSlide &slide, const QSize &size);

} // namespace quenara::test
