#pragma once

#include <QString>

namespace quenara {

/// A text as it is being edited: with a caret and what is selected between the anchor and it.
/// Positions lie between characters as people see them.
struct EditedText
{
    QString text;
    qsizetype anchor = 0;
    qsizetype caret = 0;

    qsizetype selectionStart() const;
    qsizetype selectionEnd() const;
    bool hasSelection() const { return anchor != caret; }
    QString selectedText() const;

    enum class Selecting { no, yes };
    /// With Selecting::yes the anchor stays.
    void moveTo(qsizetype position, Selecting selecting = Selecting::no);
    void selectWordAt(qsizetype position);
    void selectAll();

    /// In place of what is selected, the caret behind it.
    void insert(const QString &inserted);
    /// What is selected or, without that, what lies between the caret and \a position.
    void removeTo(qsizetype position);
    /// Takes over a text that something else has changed, the caret behind what differs.
    void replace(const QString &other);

    /// The first position between characters from \a position on, which may be any number; the end
    /// if there is none.
    qsizetype placeFrom(qsizetype position) const;

    // From the caret on; the end of the text where there is no more.
    qsizetype nextCharacter() const;
    qsizetype previousCharacter() const;
    qsizetype nextWord() const;
    qsizetype previousWord() const;
    qsizetype startOfParagraph() const;
    qsizetype endOfParagraph() const;

    bool operator==(const EditedText &) const = default;
};

} // namespace quenara
