#include "SongImportSheet.h"

#include "PlainToolTip.h"
#include "RoleLabel.h"
#include "TextBox.h"
#include "WorkspaceStore.h"

#include <QHBoxLayout>
#include <QKeyEvent>
#include <QLineEdit>
#include <QPushButton>
#include <QVBoxLayout>

namespace quenara {

namespace {

constexpr QSize sheetSize{480, 460};
constexpr int padding = 20;
constexpr int spacing = 12;
constexpr int buttonSpacing = 8;

} // namespace

bool SongImportDraft::isUntouched() const
{
    return songTitle.isEmpty()
        && (pastedLyrics.trimmed().isEmpty() || pastedLyrics == SongImportDraft().pastedLyrics);
}

SongImportSheet::SongImportSheet(WorkspaceStore &store, SongImportDraft &draft, QWidget *parent)
    : QDialog(parent), m_store(store), m_draft(draft)
{
    setObjectName(QStringLiteral("songImportSheet"));
    setWindowTitle(QStringLiteral("Paste Song Lyrics"));
    resize(sheetSize);
    setMinimumSize(sheetSize);

    m_title = new QLineEdit(draft.songTitle);
    m_title->setAccessibleName(QStringLiteral("Song title"));
    m_title->setPlaceholderText(QStringLiteral("Song title"));
    m_lyrics = new TextBox(QStringLiteral("Lyrics"));
    if (draft.pastedLyrics == SongImportDraft().pastedLyrics) {
        m_lyrics->showExample(draft.pastedLyrics);
    } else {
        m_lyrics->setPlainText(draft.pastedLyrics);
    }
    auto *cancel = new QPushButton(QStringLiteral("Cancel"));
    auto *import = new QPushButton(QStringLiteral("Import Song"));
    cancel->setToolTip(buttonToolTip(cancel->text(), Qt::Key_Escape));
    import->setToolTip(import->text());
    import->setProperty("look", QStringLiteral("primary"));
    import->setDefault(true);

    auto *buttons = new QHBoxLayout;
    buttons->setSpacing(buttonSpacing);
    buttons->addStretch();
    buttons->addWidget(cancel);
    buttons->addWidget(import);
    auto *layout = new QVBoxLayout(this);
    layout->setContentsMargins(padding, padding, padding, padding);
    layout->setSpacing(spacing);
    layout->addWidget(
        makeRoleLabel(QStringLiteral("sheetTitle"), QStringLiteral("Paste Song Lyrics")));
    layout->addWidget(m_title);
    layout->addWidget(m_lyrics, 1);
    layout->addLayout(buttons);

    const auto enableImport = [this, import] {
        import->setEnabled(!m_draft.pastedLyrics.trimmed().isEmpty());
    };
    connect(m_title, &QLineEdit::textChanged, this,
            [this](const QString &title) { m_draft.songTitle = title; });
    connect(m_lyrics, &TextBox::textChanged, this, [this, enableImport] {
        m_draft.pastedLyrics = m_lyrics->toPlainText();
        enableImport();
    });
    connect(cancel, &QPushButton::clicked, this, &QDialog::reject);
    connect(import, &QPushButton::clicked, this, &SongImportSheet::importSong);
    enableImport();
    m_title->setFocus();
}

void SongImportSheet::keyPressEvent(QKeyEvent *event)
{
    if (event->key() == Qt::Key_Return || event->key() == Qt::Key_Enter) {
        m_lyrics->setFocus(Qt::TabFocusReason);
    } else {
        QDialog::keyPressEvent(event);
    }
}

void SongImportSheet::importSong()
{
    m_store.importSong(m_draft.songTitle, m_draft.pastedLyrics);
    m_draft = {.songTitle = {}, .pastedLyrics = {}};
    accept();
}

} // namespace quenara
