#include "ExclusiveButtons.h"

#include <QAbstractButton>
#include <QButtonGroup>

namespace quenara {

void checkOnly(QButtonGroup &group, int id)
{
    group.setExclusive(false);
    for (QAbstractButton *button : group.buttons())
        button->setChecked(group.id(button) == id);
    group.setExclusive(true);
}

} // namespace quenara
