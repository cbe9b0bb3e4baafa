#pragma once

#include "ProjectModels.h"

#include <QDateTime>
#include <QList>
#include <QString>

#include <optional>

namespace quenara {

/// A named recipe that turns a slide's texts and image into a design.
struct SlideTemplate
{
    QString id;
    QString name; ///< shown in pickers
    QString subtitle; ///< a one-line description

    bool operator==(const SlideTemplate &) const = default;
};

/// The built-in slide designs and starting projects.
struct ProjectTemplates
{
    /// The catalogue, in the order it is offered.
    [[nodiscard]] static QList<SlideTemplate> templates();

    /// The design of the template with exactly this identifier; any other gives "centerLyric".
    /// Each recipe takes the inputs it needs and ignores the rest. Layer identifiers are new.
    [[nodiscard]] static SlideDesign design(const QString &templateID, const QString &title,
                                            const QString &body,
                                            const SharedOptional<QString> &footer = std::nullopt,
                                            const SharedOptional<SlideMedia> &image = std::nullopt);

    [[nodiscard]] static QString defaultTemplate(ServiceItemType type);

    /// A new slide with the template's design of its own texts and image.
    [[nodiscard]] static Slide slide(const QString &title, const QString &body,
                                     std::int64_t orderIndex, const QString &templateID,
                                     const SharedOptional<QString> &footer = std::nullopt,
                                     const SharedOptional<SlideMedia> &image = std::nullopt);

    /// "Untitled Quenara", without items.
    [[nodiscard]] static ZelvoProject blankProject(const QDateTime &now);
    [[nodiscard]] static ZelvoProject newSundayServiceProject(const QDateTime &now);
    /// A service that shows every kind of slide at work.
    [[nodiscard]] static ZelvoProject demoProject(const QDateTime &now);
};

} // namespace quenara
