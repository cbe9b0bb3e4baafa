#include "ChangedFileBox.h"
#include "FileDialogRunner.h"
#include "Files.h"
#include "GuiTestSupport.h"
#include "LeaveQuestionBox.h"
#include "TestSupport.h"

#include <QDeadlineTimer>
#include <QDialogButtonBox>
#include <QFileDialog>
#include <QLabel>
#include <QLineEdit>
#include <QMessageBox>
#include <QPointer>
#include <QPushButton>
#include <QStandardPaths>
#include <QTemporaryDir>
#include <QTimer>
#include <QWindow>

#include <chrono>
#include <functional>
#include <optional>

using namespace quenara;
using namespace quenara::test;
using namespace Qt::StringLiterals;

namespace tst_dialogs {

namespace {

/// Does each step in the dialog that has the keyboard then, one after the other, as an operator
/// does.
class Operator
{
public:
    using Step = std::function<void(QWidget &dialog)>;

    explicit Operator(QList<Step> steps, const Caller &caller = Caller::current())
        : m_steps(std::move(steps)), m_caller(caller)
    {
        QObject::connect(&m_timer, &QTimer::timeout, &m_timer, [this] { look(); });
        m_timer.start(1);
    }

    bool isDone() const { return m_steps.isEmpty() && !m_hasFailed; }

private:
    void look()
    {
        QWidget *dialog = QApplication::activeModalWidget();
        if (!dialog)
            return;
        if (m_hasFailed) {
            dialog->close();
            return;
        }
        try {
            if (m_steps.isEmpty() || !dialog->isActiveWindow()) {
                if (m_patience.hasExpired())
                    fail(QStringLiteral("a dialog stays: ") + dialog->windowTitle(), m_caller);
                return;
            }
            m_patience.setRemainingTime(patience);
            m_steps.takeFirst()(*dialog);
        } catch (const TestFailure &) {
            // Thrown further, it would not get through Qt to the test, which waits for an answer.
            m_hasFailed = true;
            dialog->close();
        }
    }

    static constexpr std::chrono::seconds patience{5};
    QList<Step> m_steps;
    Caller m_caller;
    QTimer m_timer;
    QDeadlineTimer m_patience{patience};
    bool m_hasFailed = false;
};

Operator::Step press(const QString &button, const Caller &caller = Caller::current())
{
    return [button, caller](QWidget &dialog) {
        QStringList titles;
        for (auto *candidate : dialog.findChildren<QPushButton *>()) {
            const QString title = candidate->text().remove(u'&');
            titles.append(title);
            if (title == button)
                return QTest::mouseClick(candidate, Qt::LeftButton);
        }
        fail(QStringLiteral("no button %1 among %2").arg(button, titles.join(u", "_s)), caller);
    };
}

void pressEscape(QWidget &dialog)
{
    QTest::keyClick(&dialog, Qt::Key_Escape);
}

void closeTheWindow(QWidget &dialog)
{
    dialog.close();
}

Operator::Step typeName(const QString &path)
{
    return [path](QWidget &dialog) {
        auto *field = dialog.findChild<QLineEdit *>(u"fileNameEdit"_s);
        field->setText(path); // typing opens a list that grabs the keyboard, which offscreen lacks
        const auto *buttons = dialog.findChild<QDialogButtonBox *>();
        QTest::mouseClick(buttons->buttons().constFirst(), Qt::LeftButton);
    };
}

const LeaveQuestion unsaved{.text = u"Save?"_s,
                            .detail = u"Lost otherwise."_s,
                            .offersSave = true,
                            .proceedTitle = u"Don't Save"_s};
const LeaveQuestion quitting{
    .text = u"Quit?"_s, .detail = u"Dark."_s, .offersSave = false, .proceedTitle = u"Quit"_s};

} // namespace

class TestDialogs : public GuiTest
{
    Q_OBJECT

    QWidget m_window;
    const DialogOwner m_owner = [this] { return &m_window; };

    std::optional<QUrl> save(const QString &name, const QList<Operator::Step> &steps,
                             const Caller &caller = Caller::current())
    {
        FileDialogRunner runner(m_owner);
        const Operator person(steps, caller);
        const auto answer = runner.run(zelvoProjectSavePanel(name));
        if (!person.isDone())
            fail(u"the operator had more to do"_s, caller);
        return answer;
    }

private slots:
    void initTestCase()
    {
        m_window.show();
        QApplication::setAttribute(Qt::AA_DontUseNativeDialogs);
    }

    void theQuestionAnswersAsItsButtonsSay_data()
    {
        QTest::addColumn<LeaveQuestion>("question");
        QTest::addColumn<Operator::Step>("step");
        QTest::addColumn<LeaveAnswer>("expected");
        QTest::newRow("Save") << unsaved << press(u"Save"_s) << LeaveAnswer::save;
        QTest::newRow("Don't Save") << unsaved << press(u"Don't Save"_s) << LeaveAnswer::proceed;
        QTest::newRow("Cancel") << unsaved << press(u"Cancel"_s) << LeaveAnswer::cancel;
        QTest::newRow("Escape") << unsaved << Operator::Step(pressEscape) << LeaveAnswer::cancel;
        QTest::newRow("closing it")
            << unsaved << Operator::Step(closeTheWindow) << LeaveAnswer::cancel;
        QTest::newRow("Return, as Save is the default")
            << unsaved
            << Operator::Step([](QWidget &dialog) { QTest::keyClick(&dialog, Qt::Key_Return); })
            << LeaveAnswer::save;
        QTest::newRow("Quit") << quitting << press(u"Quit"_s) << LeaveAnswer::proceed;
        QTest::newRow("Return during a service, as Cancel is the default")
            << quitting
            << Operator::Step([](QWidget &dialog) { QTest::keyClick(&dialog, Qt::Key_Return); })
            << LeaveAnswer::cancel;
    }

    void theQuestionAnswersAsItsButtonsSay()
    {
        QFETCH(LeaveQuestion, question);
        QFETCH(Operator::Step, step);
        QFETCH(LeaveAnswer, expected);
        const Operator person({step});
        QCOMPARE(LeaveQuestionBox(m_owner).ask(question), expected);
    }

    void aFolderIsChosenByItsNameOrAsTheOneThatIsShown()
    {
        const QTemporaryDir folder;
        const auto choose = [&](const Operator::Step &step) {
            FileDialogRunner runner(m_owner);
            const Operator person({step});
            return runner.run(exportedPicturesPanel());
        };
        QCOMPARE(choose(typeName(folder.path())), QUrl::fromLocalFile(folder.path()));
        QCOMPARE(
            choose(press(u"Choose"_s)),
            QUrl::fromLocalFile(QStandardPaths::writableLocation(QStandardPaths::HomeLocation)));
        QCOMPARE(choose(pressEscape), std::optional<QUrl>());
    }

    void theQuestionShowsItsTextsAndStandsOnTheOperatorsWindow()
    {
        const Operator person({[this](QWidget &dialog) {
            const auto &box = dynamic_cast<QMessageBox &>(dialog);
            QCOMPARE(box.text(), unsaved.text);
            QCOMPARE(box.informativeText(), unsaved.detail);
            QCOMPARE(box.parentWidget(), &m_window);
            QCOMPARE(box.windowModality(), Qt::WindowModal);
            for (const QLabel *label : box.findChildren<QLabel *>())
                QCOMPARE(label->textFormat(), Qt::PlainText);
            dialog.close();
        }});
        LeaveQuestionBox(m_owner).ask(unsaved);
        QVERIFY(person.isDone());
    }

    void whatIsAskedOutlivesTheSheetThatItStandsOn_data()
    {
        QTest::addColumn<std::function<void(const DialogOwner &)>>("ask");
        QTest::newRow("a question") << std::function(
            [](const DialogOwner &owner) { LeaveQuestionBox(owner).ask(unsaved); });
        QTest::newRow("a file panel") << std::function(
            [](const DialogOwner &owner) { FileDialogRunner(owner).run(zelvoProjectOpenPanel()); });
        QTest::newRow("a question about a file") << std::function([](const DialogOwner &owner) {
            static_cast<void>(askAboutChangedFile(owner, u"Sunday.quenara"_s));
        });
    }

    void whatIsAskedOutlivesTheSheetThatItStandsOn()
    {
        QFETCH(std::function<void(const DialogOwner &)>, ask);
        const QPointer sheet = new QDialog(&m_window);
        sheet->setAttribute(Qt::WA_DeleteOnClose);
        sheet->open();
        const Operator person({[&](QWidget &dialog) {
                                   QCOMPARE(dialog.windowHandle()->transientParent(),
                                            sheet->windowHandle());
                                   sheet->close();
                               },
                               [&](QWidget &dialog) {
                                   QVERIFY(!sheet);
                                   dialog.close();
                               }});
        ask(m_owner);
        QVERIFY(person.isDone());
        QTRY_VERIFY(m_window.isActiveWindow());
    }

    void aSavedNameGetsTheSuffixOnce_data()
    {
        QTest::addColumn<QString>("typed");
        QTest::addColumn<QString>("saved");
        QTest::newRow("none") << u"Sunday"_s << u"Sunday.quenara"_s;
        QTest::newRow("its own") << u"Sunday.quenara"_s << u"Sunday.quenara"_s;
        QTest::newRow("another one") << u"Sunday.json"_s << u"Sunday.json.quenara"_s;
        QTest::newRow("a date") << u"Sunday 1.11."_s << u"Sunday 1.11..quenara"_s;
    }

    void aSavedNameGetsTheSuffixOnce()
    {
        QFETCH(QString, typed);
        QFETCH(QString, saved);
        const QTemporaryDir folder;
        const QUrl expected = QUrl::fromLocalFile(folder.filePath(saved));
        QCOMPARE(save(u"Proposed"_s, {typeName(folder.filePath(typed))}), expected);
    }

    void theProposedNameIsTaken()
    {
        const auto answer = save(u"Proposed"_s, {press(u"Save"_s)});
        QVERIFY(answer);
        QCOMPARE(answer->fileName(), u"Proposed.quenara"_s);
    }

    void replacingIsAskedForUnderTheFinalName()
    {
        const QTemporaryDir folder;
        const QString path = folder.filePath(u"Sunday.quenara"_s);
        writeFile(path, {});
        QString question;
        const auto readQuestion = [&question](QWidget &dialog) {
            question = dynamic_cast<QMessageBox &>(dialog).text();
            press(u"Replace"_s)(dialog);
        };
        QCOMPARE(save(u"Proposed"_s, {typeName(folder.filePath(u"Sunday"_s)), readQuestion}),
                 QUrl::fromLocalFile(path));
        QCOMPARE(question,
                 u"\u201cSunday.quenara\u201d already exists. Do you want to replace it?"_s);
    }

    void returnDoesNotReplace()
    {
        const QTemporaryDir folder;
        writeFile(folder.filePath(u"Sunday.quenara"_s), {});
        const auto pressReturn = [](QWidget &dialog) { QTest::keyClick(&dialog, Qt::Key_Return); };
        QVERIFY(!save(
            u"Proposed"_s,
            {typeName(folder.filePath(u"Sunday"_s)), pressReturn, Operator::Step(pressEscape)}));
    }

    void aProposedNameIsTheNameOfAFile_data()
    {
        QTest::addColumn<QString>("name");
        QTest::addColumn<QString>("proposed");
        QTest::newRow("quotes and an ampersand")
            << u"Grüße \"q\" & Söhne"_s << u"Grüße -q- & Söhne.quenara"_s;
        QTest::newRow("a path") << u"/etc/passwd"_s << u"-etc-passwd.quenara"_s;
        QTest::newRow("the way up") << u"../../x"_s << u"-..-x.quenara"_s;
        QTest::newRow("a separator at the end") << u"w/"_s << u"w-.quenara"_s;
        QTest::newRow("hidden") << u".hidden"_s << u"hidden.quenara"_s;
        QTest::newRow("lines") << u"one\ntwo\tthree"_s << u"one-two-three.quenara"_s;
        QTest::newRow("letters") << QString(300, u'a') << QString(247, u'a') + u".quenara"_s;
        QTest::newRow("pairs") << u"\U0001F3B5"_s.repeated(80)
                               << u"\U0001F3B5"_s.repeated(61) + u".quenara"_s;
    }

    void aProposedNameIsTheNameOfAFile()
    {
        QFETCH(QString, name);
        QFETCH(QString, proposed);
        QString shown;
        const auto readName = [&shown](QWidget &dialog) {
            shown = dialog.findChild<QLineEdit *>(u"fileNameEdit"_s)->text();
            dialog.close();
        };
        save(name, {readName});
        QCOMPARE(shown, proposed);
    }

    void aTypedNameWithQuotesIsOneName()
    {
        const QTemporaryDir folder;
        QCOMPARE(save(u"Proposed"_s, {typeName(folder.filePath(u"the \"new\" one"_s))}),
                 QUrl::fromLocalFile(folder.filePath(u"the \"new\" one.quenara"_s)));
    }

    void notReplacingGoesBackToTheName()
    {
        const QTemporaryDir folder;
        writeFile(folder.filePath(u"Sunday.quenara"_s), {});
        QString proposed;
        const auto typeAnother = [&](QWidget &dialog) {
            proposed = dialog.findChild<QLineEdit *>(u"fileNameEdit"_s)->text();
            typeName(folder.filePath(u"Monday"_s))(dialog);
        };
        QCOMPARE(save(u"Proposed"_s,
                      {typeName(folder.filePath(u"Sunday"_s)), press(u"Cancel"_s), typeAnother}),
                 QUrl::fromLocalFile(folder.filePath(u"Monday.quenara"_s)));
        QCOMPARE(proposed, u"Sunday.quenara"_s);
    }

    void aCancelledPanelGivesNoFile()
    {
        QVERIFY(!save(u"Proposed"_s, {Operator::Step(pressEscape)}));
        QVERIFY(!save(u"Proposed"_s, {press(u"Cancel"_s)}));
    }

    void theNextPanelStartsWhereTheLastFileWas()
    {
        const QTemporaryDir folder;
        FileDialogRunner runner(m_owner);
        const Operator person({typeName(folder.filePath(u"Sunday"_s)), press(u"Save"_s)});
        runner.run(zelvoProjectSavePanel(u"First"_s));
        QCOMPARE(runner.run(zelvoProjectSavePanel(u"Second"_s)),
                 QUrl::fromLocalFile(folder.filePath(u"Second.quenara"_s)));
    }

    void aPanelStartsBesideTheFileItIsToldOf()
    {
        const QTemporaryDir folder;
        FileDialogRunner runner(m_owner);
        runner.startBeside(QUrl::fromLocalFile(folder.filePath(u"Sunday"_s)));
        runner.startBeside(QUrl::fromLocalFile(folder.filePath(u"gone/Sunday"_s)));
        runner.startBeside(QUrl(u"https://example.org/Sunday"_s));
        const Operator person({press(u"Save"_s)});
        QCOMPARE(runner.run(zelvoProjectSavePanel(u"Next"_s)),
                 QUrl::fromLocalFile(folder.filePath(u"Next.quenara"_s)));
    }

    void anImageLeavesThePanelsForProjectsWhereTheyWere()
    {
        const QTemporaryDir projects;
        const QTemporaryDir images;
        writeFile(images.filePath(u"a.png"_s), {});
        FileDialogRunner runner(m_owner);
        runner.startBeside(QUrl::fromLocalFile(projects.filePath(u"Sunday"_s)));
        QString imageFolder;
        const auto readFolder = [&](QWidget &dialog) {
            imageFolder = dynamic_cast<QFileDialog &>(dialog).directory().path();
            dialog.close();
        };
        const Operator person(
            {typeName(images.filePath(u"a.png"_s)), press(u"Save"_s), readFolder});
        QVERIFY(runner.run(zelvoImageOpenPanel()));
        QCOMPARE(runner.run(zelvoProjectSavePanel(u"Next"_s)),
                 QUrl::fromLocalFile(projects.filePath(u"Next.quenara"_s)));
        QVERIFY(!runner.run(zelvoImageOpenPanel()));
        QCOMPARE(imageFolder, images.path());
    }

    void anOpenPanelTakesOneExistingFile()
    {
        FileDialogRunner runner(m_owner);
        const QString path = dataPath(u"current.quenara"_s);
        const Operator person({[this](QWidget &dialog) {
                                   const auto &panel = dynamic_cast<QFileDialog &>(dialog);
                                   QCOMPARE(panel.windowTitle(), u"Open Quenara Project"_s);
                                   QCOMPARE(panel.fileMode(), QFileDialog::ExistingFile);
                                   QCOMPARE(panel.parentWidget(), &m_window);
                                   QCOMPARE(panel.windowModality(), Qt::WindowModal);
                               },
                               typeName(path)});
        QCOMPARE(runner.run(zelvoProjectOpenPanel()), QUrl::fromLocalFile(path));
    }

    void aSecondPanelMeanwhileIsCancelled()
    {
        FileDialogRunner runner(m_owner);
        std::optional<QUrl> second = QUrl();
        const Operator person({[&](QWidget &dialog) {
            second = runner.run(zelvoProjectOpenPanel());
            dialog.close();
        }});
        runner.run(zelvoProjectSavePanel(u"First"_s));
        QVERIFY(!second);
    }
};

QUENARA_GUI_TEST(TestDialogs)

} // namespace tst_dialogs

#include "tst_dialogs.moc"
