#include "InputMethodEdits.h"

#include <QInputMethodEvent>

#include <algorithm>

namespace quenara {

Preedit preeditOf(const QInputMethodEvent &event)
{
    Preedit preedit{event.preeditString(), event.preeditString().size()};
    for (const QInputMethodEvent::Attribute &attribute : event.attributes()) {
        if (attribute.type == QInputMethodEvent::Cursor)
            preedit.caret = attribute.start;
    }
    return preedit;
}

void commit(EditedText &edit, const QInputMethodEvent &event)
{
    edit.removeTo(edit.caret);
    const qsizetype start =
        std::clamp<qsizetype>(edit.caret + event.replacementStart(), 0, edit.text.size());
    const qsizetype length =
        std::clamp<qsizetype>(event.replacementLength(), 0, edit.text.size() - start);
    if (length > 0) {
        edit.moveTo(start);
        edit.removeTo(start + length);
    }
    edit.insert(event.commitString());
}

bool select(EditedText &edit, const QInputMethodEvent &event)
{
    bool isAsked = false;
    for (const QInputMethodEvent::Attribute &attribute : event.attributes()) {
        if (attribute.type == QInputMethodEvent::Selection) {
            const qsizetype start = attribute.start;
            edit.moveTo(edit.placeFrom(start));
            edit.moveTo(edit.placeFrom(start + attribute.length), EditedText::Selecting::yes);
            isAsked = true;
        }
    }
    return isAsked;
}

} // namespace quenara
