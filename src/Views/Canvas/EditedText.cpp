#include "EditedText.h"

#include <QTextBoundaryFinder>

#include <algorithm>

namespace quenara {

namespace {

using Finder = QTextBoundaryFinder;

/// What a finder looks at: it examines all of its text before it answers, however long that is.
/// Characters and words end within this piece.
struct Surroundings
{
    static constexpr qsizetype reach = 10'000; ///< to either side

    qsizetype start;
    QString piece;

    Surroundings(const QString &text, qsizetype position)
        : start(std::max<qsizetype>(0, position - reach)), piece(text.mid(start, 2 * reach))
    {}
};

/// The first boundary, in the direction of \a step from \a position, that is there for one of
/// \a reasons; \a end if there is none.
qsizetype boundary(Finder::BoundaryType type, const QString &text, qsizetype position,
                   Finder::BoundaryReasons reasons, qsizetype (Finder::*step)(), qsizetype end)
{
    const Surroundings around(text, position);
    Finder finder(type, around.piece);
    finder.setPosition(position - around.start);
    while ((finder.*step)() >= 0) {
        if (finder.boundaryReasons() & reasons)
            return around.start + finder.position();
    }
    return std::clamp(end, around.start, around.start + around.piece.size());
}

qsizetype next(Finder::BoundaryType type, const QString &text, qsizetype position,
               Finder::BoundaryReasons reasons)
{
    return boundary(type, text, position, reasons, &Finder::toNextBoundary, text.size());
}

qsizetype previous(Finder::BoundaryType type, const QString &text, qsizetype position,
                   Finder::BoundaryReasons reasons)
{
    return boundary(type, text, position, reasons, &Finder::toPreviousBoundary, 0);
}

constexpr Finder::BoundaryReasons anyBoundary =
    Finder::BreakOpportunity | Finder::StartOfItem | Finder::EndOfItem;

} // namespace

qsizetype EditedText::selectionStart() const
{
    return std::min(anchor, caret);
}

qsizetype EditedText::selectionEnd() const
{
    return std::max(anchor, caret);
}

QString EditedText::selectedText() const
{
    return text.sliced(selectionStart(), selectionEnd() - selectionStart());
}

void EditedText::moveTo(qsizetype position, Selecting selecting)
{
    caret = position;
    if (selecting == Selecting::no)
        anchor = position;
}

void EditedText::selectWordAt(qsizetype position)
{
    anchor = previous(Finder::Word, text, std::min(position + 1, text.size()), anyBoundary);
    caret = next(Finder::Word, text, anchor, anyBoundary);
}

void EditedText::selectAll()
{
    anchor = 0;
    caret = text.size();
}

void EditedText::insert(const QString &inserted)
{
    removeTo(caret);
    text.insert(caret, inserted);
    moveTo(caret + inserted.size());
}

void EditedText::removeTo(qsizetype position)
{
    if (!hasSelection())
        anchor = position;
    const qsizetype start = selectionStart();
    text.remove(start, selectionEnd() - start);
    moveTo(start);
}

void EditedText::replace(const QString &other)
{
    const qsizetype shorter = std::min(text.size(), other.size());
    const auto [before, unused] =
        std::mismatch(text.cbegin(), text.cbegin() + shorter, other.cbegin());
    const qsizetype same = shorter - (before - text.cbegin());
    const auto [behind, unusedToo] =
        std::mismatch(text.crbegin(), text.crbegin() + same, other.crbegin());
    caret = other.size() - (behind - text.crbegin());
    text = other;
    moveTo(placeFrom(caret));
}

qsizetype EditedText::placeFrom(qsizetype position) const
{
    const qsizetype within = std::clamp<qsizetype>(position, 0, text.size());
    const Surroundings around(text, within);
    Finder finder(Finder::Grapheme, around.piece);
    finder.setPosition(within - around.start);
    return finder.isAtBoundary() ? within : next(Finder::Grapheme, text, within, anyBoundary);
}

qsizetype EditedText::nextCharacter() const
{
    return next(Finder::Grapheme, text, caret, anyBoundary);
}

qsizetype EditedText::previousCharacter() const
{
    return previous(Finder::Grapheme, text, caret, anyBoundary);
}

qsizetype EditedText::nextWord() const
{
    return next(Finder::Word, text, caret, Finder::StartOfItem);
}

qsizetype EditedText::previousWord() const
{
    return previous(Finder::Word, text, caret, Finder::StartOfItem);
}

qsizetype EditedText::startOfParagraph() const
{
    return caret == 0 ? 0 : text.lastIndexOf(u'\n', caret - 1) + 1;
}

qsizetype EditedText::endOfParagraph() const
{
    const qsizetype end = text.indexOf(u'\n', caret);
    return end < 0 ? text.size() : end;
}

} // namespace quenara
