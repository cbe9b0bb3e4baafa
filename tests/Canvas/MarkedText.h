#pragma once

#include "EditedText.h"

namespace quenara::test {

/// The text that \a marked stands for: "|" is the caret and "^", if there is one, the anchor.
inline EditedText edited(QString marked)
{
    EditedText edit;
    const qsizetype caret = marked.indexOf(u'|');
    const qsizetype anchor = marked.indexOf(u'^');
    edit.caret = caret - (anchor >= 0 && anchor < caret ? 1 : 0);
    edit.anchor = anchor < 0 ? edit.caret : anchor - (caret < anchor ? 1 : 0);
    edit.text = marked.remove(u'|').remove(u'^');
    return edit;
}

/// What edited() makes \a edit of.
inline QString marked(const EditedText &edit)
{
    QString text = edit.text;
    text.insert(edit.caret, u'|');
    if (edit.hasSelection())
        text.insert(edit.anchor + (edit.anchor > edit.caret ? 1 : 0), u'^');
    return text;
}

} // namespace quenara::test
