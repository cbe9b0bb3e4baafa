#pragma once

#include <QString>

namespace quenara {

/// A failure of a file operation. The files' edge throws it, the store catches it.
class ProjectFileError
{
public:
    enum Case { unableToRead, unableToWrite, unsupportedFormat };

    constexpr explicit ProjectFileError(Case value) : m_case(value) {}

    /// The text shown to the operator.
    [[nodiscard]] QString description() const
    {
        switch (m_case) {
        case unableToRead:
            return QStringLiteral("Quenara could not read that file.");
        case unableToWrite:
            return QStringLiteral("Quenara could not save the project.");
        case unsupportedFormat:
            break;
        }
        return QStringLiteral("That file does not look like a Quenara project.");
    }

    bool operator==(const ProjectFileError &) const = default;

private:
    Case m_case;
};

/// A project that no document can hold, since a number in it is not finite. The encoder throws it,
/// the store catches it.
struct ProjectEncodingError
{
    /// The text shown to the operator.
    [[nodiscard]] static QString description()
    {
        return QStringLiteral("The project holds a number that cannot be saved.");
    }
};

} // namespace quenara
