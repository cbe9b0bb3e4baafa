#pragma once

#include <QDialog>
#include <QString>

class QLineEdit;

namespace quenara {

class TextBox;
class WorkspaceStore;

/// The texts of the song import sheet. They outlive the sheet, so that they are still there after
/// it was cancelled.
struct SongImportDraft
{
    QString songTitle;
    QString pastedLyrics =
        QStringLiteral("[Verse 1]\nLine one\nLine two\n\n[Chorus]\nLine one\nLine two");

    /// Whether nobody has typed anything that is still there.
    [[nodiscard]] bool isUntouched() const;
};

/// The sheet that makes a song of pasted lyrics. Importing empties the draft.
class SongImportSheet : public QDialog
{
    Q_OBJECT

public:
    /// Shows \a draft and keeps it up to date; it must outlive the sheet.
    SongImportSheet(WorkspaceStore &store, SongImportDraft &draft, QWidget *parent);

protected:
    /// Return in the title leads on to the lyrics rather than import what nobody has looked at.
    void keyPressEvent(QKeyEvent *event) override;

private:
    void importSong();

    WorkspaceStore &m_store;
    SongImportDraft &m_draft;
    QLineEdit *m_title = nullptr;
    TextBox *m_lyrics = nullptr;
};

} // namespace quenara
