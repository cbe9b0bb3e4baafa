#pragma once

#include "TestFailure.h"

#include <QAbstractButton>
#include <QList>
#include <QStringList>
#include <QWidget>

namespace quenara::test {

/// The accessible name of a widget; of a button without one, its text.
QString nameOf(const QWidget &widget);

/// The first widget within \a parent that nameOf() calls \a name, shown or not. There has to be
/// one.
template<class Widget = QWidget>
Widget &named(const QWidget &parent, const QString &name, const Caller &caller = Caller::current())
{
    for (Widget *candidate : parent.findChildren<Widget *>()) {
        if (nameOf(*candidate) == name)
            return *candidate;
    }
    fail(QStringLiteral("there is no \"%1\"").arg(name), caller);
}

/// The visible buttons of that name within \a parent, from the top down and left to right.
QList<QAbstractButton *> shownButtons(const QWidget &parent, const QString &name);

/// Clicks the one at \a position of shownButtons(). There has to be one.
void press(const QWidget &parent, const QString &name, qsizetype position = 0,
           const Caller &caller = Caller::current());

/// The texts of all labels within \a parent, in the order in which they were made.
QStringList labelTexts(const QWidget &parent);

/// Waits until the clock of events, which counts milliseconds, has gone on: a key that goes down at
/// the very moment of its last release would count as the repeat of a held key.
void waitForTheNextMoment();

/// Shows a window and waits until it has the keyboard.
void showActive(QWidget &window, const Caller &caller = Caller::current());

} // namespace quenara::test
