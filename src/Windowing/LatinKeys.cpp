#include "LatinKeys.h"

#include "CommandActions.h"
#include "Typing.h"

#include <QApplication>
#include <QChar>
#include <QKeyEvent>

#include <array>
#include <optional>
#include <string_view>
#include <utility>

namespace quenara {

namespace {

/// Keys beside each other on an English keyboard.
struct KeyRow
{
    quint32 first; ///< what X11 and Wayland call the place of the first key
    std::string_view characters;
};

constexpr auto keyRows = std::to_array<KeyRow>({
    {24, "QWERTYUIOP"},
    {38, "ASDFGHJKL"},
    {52, "ZXCVBNM,"},
});

bool isOfOtherScript(int key)
{
    if (key >= Qt::Key_Escape)
        return false; // no character
    const QChar::Script script = QChar::script(char32_t(key));
    return script != QChar::Script_Latin && script != QChar::Script_Common;
}

/// What the key at a place writes on an English keyboard, if that is a letter or a comma.
std::optional<Qt::Key> englishKeyAt(quint32 place)
{
    for (const auto &[first, characters] : keyRows) {
        if (place >= first && place - first < characters.size())
            return Qt::Key(characters[place - first]);
    }
    return std::nullopt;
}

/// Whether \a press has written nothing that a key could be found for.
std::optional<QKeySequence> englishKeys(const QKeyEvent &press)
{
    const auto key = englishKeyAt(press.nativeScanCode());
    if (!key || !isOfOtherScript(press.key()))
        return std::nullopt;
    return QKeySequence(QKeyCombination(press.modifiers(), *key));
}

} // namespace

LatinKeys::LatinKeys(CommandActions &commands, QObject *parent)
    : QObject(parent), m_commands(commands)
{}

bool LatinKeys::eventFilter(QObject *watched, QEvent *event)
{
    switch (event->type()) {
    case QEvent::ShortcutOverride:
        ask(*static_cast<const QKeyEvent *>(event));
        return false;
    case QEvent::KeyRelease:
        m_asked = 0;
        return false;
    case QEvent::KeyPress: {
        // It has come from the widget with the focus up to the window if nothing has taken it.
        const auto *window = qobject_cast<const QWidget *>(watched);
        return window && window->isWindow()
            && runs(*window, *static_cast<const QKeyEvent *>(event));
    }
    default:
        return QObject::eventFilter(watched, event);
    }
}

void LatinKeys::ask(const QKeyEvent &press)
{
    // Qt asks once more, without the place, about a press that it has held back.
    if (press.nativeScanCode() != 0 && !QApplication::activePopupWidget())
        m_asked = press.nativeScanCode();
}

bool LatinKeys::runs(const QWidget &window, const QKeyEvent &press)
{
    const bool mayBeShortcut =
        press.nativeScanCode() != 0 && press.nativeScanCode() == std::exchange(m_asked, 0);
    const auto keys = mayBeShortcut ? englishKeys(press) : std::nullopt;
    if (!keys)
        return false;
    for (const CommandDescription &description : commandDescriptions()) {
        QAction *action = m_commands.action(description.command);
        const bool isOfText =
            description.worksOnSelection && takesText(QApplication::focusWidget());
        if (!isOfText && action->isEnabled() && action->shortcuts().contains(*keys)
            && window.actions().contains(action)) {
            m_commands.perform(description.command);
            return true;
        }
    }
    return false;
}

} // namespace quenara
