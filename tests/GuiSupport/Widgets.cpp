#include "Widgets.h"

#include <QApplication>
#include <QElapsedTimer>
#include <QLabel>
#include <QTest>

#include <algorithm>
#include <utility>

namespace quenara::test {

QString nameOf(const QWidget &widget)
{
    const auto *button = qobject_cast<const QAbstractButton *>(&widget);
    return button && button->accessibleName().isEmpty() ? button->text() : widget.accessibleName();
}

QList<QAbstractButton *> shownButtons(const QWidget &parent, const QString &name)
{
    auto found = parent.findChildren<QAbstractButton *>();
    found.removeIf([&](const QAbstractButton *button) {
        return !button->isVisible() || nameOf(*button) != name;
    });
    const auto place = [&](const QAbstractButton *button) {
        const QPoint topLeft = button->mapTo(&parent, QPoint());
        return std::pair(topLeft.y(), topLeft.x());
    };
    std::sort(found.begin(), found.end(),
              [&](const auto *a, const auto *b) { return place(a) < place(b); });
    return found;
}

void press(const QWidget &parent, const QString &name, qsizetype position, const Caller &caller)
{
    const auto buttons = shownButtons(parent, name);
    if (position >= buttons.size())
        fail(QStringLiteral("%1 buttons \"%2\" are shown").arg(buttons.size()).arg(name), caller);
    QTest::mouseClick(buttons.at(position), Qt::LeftButton);
}

QStringList labelTexts(const QWidget &parent)
{
    QStringList texts;
    for (const QLabel *label : parent.findChildren<QLabel *>())
        texts.append(label->text());
    return texts;
}

void waitForTheNextMoment()
{
    constexpr qint64 moment = 1'000'000; // nanoseconds
    QElapsedTimer sinceNow;
    sinceNow.start();
    while (sinceNow.nsecsElapsed() <= moment)
        QCoreApplication::processEvents();
}

void showActive(QWidget &window, const Caller &caller)
{
    window.show();
    window.activateWindow();
    // QTest's own wait takes a dialog for active while its parent is.
    if (!QTest::qWaitFor([&] { return window.isActiveWindow(); }))
        fail(QStringLiteral("the window does not get the keyboard"), caller);
}

} // namespace quenara::test
