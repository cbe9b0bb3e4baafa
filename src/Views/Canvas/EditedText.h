#pragma once

#include <QString>

namespace quenara {

/// A text that is being edited: the selection lies between the anchor and the caret. Positions lie
/// between characters as people see them.
struct EditedText
{
    QString text;
    qsizetype anchor = 0;
    qsizetype caret = 0;

    [[nodiscard]] qsizetype selectionStart() const;
    [[nodiscard]] qsizetype selectionEnd() const;
    [[nodiscard]] bool hasSelection() const { return anchor != caret; }
    [[nodiscard]] QString selectedText() const;

    enum class Selecting { no, yes };
    /// With Selecting::yes the anchor stays.
    void moveTo(qsizetype position, Selecting selecting = Selecting::no);
    void selectWordAt(qsizetype position);
    void selectAll();

    /// Puts \a inserted in the place of the selection, and the caret behind it.
    void insert(const QString &inserted);
    /// Removes the selection or, without one, the text between the caret and \a position.
    void removeTo(qsizetype position);
    /// Takes over the text after something else changed it. The caret comes behind what differs.
    void replace(const QString &other);

    /// The first position between characters that is not before \a position, which may be any
    /// number; the end of the text if there is none.
    [[nodiscard]] qsizetype placeFrom(qsizetype position) const;

    // Positions seen from the caret; an end of the text where there is no other.
    [[nodiscard]] qsizetype nextCharacter() const;
    [[nodiscard]] qsizetype previousCharacter() const;
    [[nodiscard]] qsizetype nextWord() const;
    [[nodiscard]] qsizetype previousWord() const;
    [[nodiscard]] qsizetype startOfParagraph() const;
    [[nodiscard]] qsizetype endOfParagraph() const;

    bool operator==(const EditedText &) const = default;
};

} // namespace quenara
