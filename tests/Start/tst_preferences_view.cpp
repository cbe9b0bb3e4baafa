#include "GuiTestSupport.h"
#include "InterfaceStyle.h"
#include "PreferencesView.h"

#include <QDialog>
#include <QLabel>
#include <QPushButton>
#include <QSignalSpy>

using namespace quenara;
using namespace quenara::test;
using namespace Qt::StringLiterals;

namespace tst_preferences_view {

namespace {

QStringList titles(const QList<QPushButton *> &buttons)
{
    QStringList found;
    for (const QPushButton *button : buttons)
        found.append(button->text());
    return found;
}

QStringList selectedTitles(const PreferencesView &view)
{
    QList<QPushButton *> selected = view.findChildren<QPushButton *>();
    selected.removeIf([](const QPushButton *button) { return !button->isChecked(); });
    return titles(selected);
}

} // namespace

class TestPreferencesView : public GuiTest
{
    Q_OBJECT

private slots:
    void itHasItsSizeAndItsTexts()
    {
        const PreferencesView view;
        QCOMPARE(view.size(), QSize(430, 230));
        QCOMPARE(labelTexts(view),
                 (QStringList{u"Quenara Settings"_s, u"Appearance"_s,
                              u"Stage window chrome follows this preference. Slide output keeps "
                              "the slide design colors exactly."_s}));
    }

    void allTextsFitInBothSchemes()
    {
        for (const ZelvoTheme *theme : {&ZelvoTheme::dark(), &ZelvoTheme::light()}) {
            PreferencesView view;
            view.setStyleSheet(interfaceStyleSheet(*theme));
            view.show();
            for (const QLabel *label : view.findChildren<QLabel *>()) {
                const int needed = label->wordWrap() ? label->heightForWidth(label->width())
                                                     : label->sizeHint().height();
                QVERIFY2(label->height() >= needed, qPrintable(label->text()));
                QVERIFY(view.rect().contains(QRect(label->mapTo(&view, QPoint()), label->size())));
            }
        }
    }

    void theAppearancesAreOfferedInTheirOrder()
    {
        const PreferencesView view;
        QCOMPARE(titles(view.findChildren<QPushButton *>()),
                 (QStringList{u"System"_s, u"Light"_s, u"Dark"_s}));
    }

    void theStoredTextSelectsItsSegment_data()
    {
        QTest::addColumn<QString>("stored");
        QTest::addColumn<QStringList>("selected");
        QTest::newRow("system") << u"system"_s << QStringList{u"System"_s};
        QTest::newRow("light") << u"light"_s << QStringList{u"Light"_s};
        QTest::newRow("dark") << u"dark"_s << QStringList{u"Dark"_s};
        QTest::newRow("an unknown text selects none") << u"sepia"_s << QStringList();
        QTest::newRow("a title is no stored text") << u"Dark"_s << QStringList();
        QTest::newRow("an empty text selects none") << QString() << QStringList();
    }

    void theStoredTextSelectsItsSegment()
    {
        QFETCH(QString, stored);
        QFETCH(QStringList, selected);
        PreferencesView view;
        view.setAppAppearance(u"light"_s);
        view.setAppAppearance(stored);
        QCOMPARE(selectedTitles(view), selected);
    }

    void aClickTellsTheRawValueOfItsSegment()
    {
        PreferencesView view;
        view.setAppAppearance(u"sepia"_s);
        view.show();
        const QSignalSpy chosen(&view, &PreferencesView::appAppearanceChosen);
        for (QPushButton *segment : view.findChildren<QPushButton *>())
            QTest::mouseClick(segment, Qt::LeftButton);
        QCOMPARE(chosen.size(), 3);
        QCOMPARE(chosen.at(0).constFirst().toString(), u"system"_s);
        QCOMPARE(chosen.at(1).constFirst().toString(), u"light"_s);
        QCOMPARE(chosen.at(2).constFirst().toString(), u"dark"_s);
    }

    void returnChoosesNoneInADialog()
    {
        QDialog dialog;
        PreferencesView view(&dialog);
        const QSignalSpy chosen(&view, &PreferencesView::appAppearanceChosen);
        showActive(dialog);
        dialog.setFocus();
        QTest::keyClick(&dialog, Qt::Key_Return);
        QVERIFY(chosen.isEmpty());
    }

    void altAndTheFirstLetterChooseToo()
    {
        PreferencesView view;
        showActive(view);
        const QSignalSpy chosen(&view, &PreferencesView::appAppearanceChosen);
        QTest::keyClick(view.windowHandle(), Qt::Key_D, Qt::AltModifier);
        QTRY_COMPARE(chosen.size(), 1);
        QCOMPARE(chosen.constFirst().constFirst().toString(), u"dark"_s);
        QCOMPARE(view.findChildren<QPushButton *>().constLast()->toolTip(), u"Dark (Alt+D)"_s);
    }
};

QUENARA_GUI_TEST(TestPreferencesView)

} // namespace tst_preferences_view

#include "tst_preferences_view.moc"
