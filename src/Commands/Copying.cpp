#include "Copying.h"

#include "Clipboard.h"
#include "ProjectCodec.h"
#include "SongImportService.h"
#include "TransferredData.h"
#include "WorkspaceStore.h"

#include <QApplication>
#include <QMimeData>
#include <QWidget>

#include <memory>
#include <new>
#include <utility>

namespace quenara {

namespace {

constexpr const char *takesSongsProperty = "takesSongs";

/// No slide has room for more; a song sheet neither.
constexpr qsizetype longestPastedText = 100'000;

/// The words of the layer for programs that know no layers.
QString wordsOf(const SlideElement &layer)
{
    if (layer.text)
        return layer.text->text;
    return layer.lowerThird ? layer.lowerThird->title + u'\n' + layer.lowerThird->subtitle
                            : QString();
}

template<class Clip>
bool put(const Clip &clip, const char *type, const QString &words)
{
    try {
        auto contents = std::make_unique<QMimeData>();
        contents->setData(QString::fromLatin1(type), ProjectCodec::encode(clip));
        if (!words.isEmpty())
            contents->setText(words);
        QGuiApplication::clipboard()->setMimeData(contents.release());
        return true;
    } catch (const ProjectEncodingError &) {
        return false;
    } catch (const std::bad_alloc &) {
        return false;
    }
}

/// Has \a paste take the clip if the clipboard holds one of that \a type, though it be unfit.
template<class Clip>
bool takeClip(const QMimeData &contents, const char *type,
              std::optional<Clip> (*decode)(QByteArray bytes), WorkspaceStore &store,
              void (WorkspaceStore::*paste)(const Clip &clip))
{
    const QString format = QString::fromLatin1(type);
    if (!contents.hasFormat(format))
        return false;
    std::optional<Clip> clip;
    try {
        clip = decode(contents.data(format));
    } catch (const std::bad_alloc &) {
        return true;
    }
    if (clip)
        (store.*paste)(*clip);
    return true;
}

bool isWhereSongsBelong(const QWidget *widget)
{
    while (widget && !widget->property(takesSongsProperty).toBool())
        widget = widget->parentWidget();
    return widget;
}

void takeText(const QString &text, WorkspaceStore &store)
{
    if (text.size() > longestPastedText)
        return;
    const bool isForSong = isWhereSongsBelong(QApplication::focusWidget())
        || !store.slideWithID(store.selectedSlideID());
    if (isForSong && SongImportService::hasHeadings(text)) {
        store.offerSong({.title = {}, .lyrics = text});
    } else {
        store.pasteText(text);
    }
}

} // namespace

bool copyToClipboard(const WorkspaceStore &store)
{
    const std::optional<Slide> slide = store.slideWithID(store.selectedSlideID());
    if (!slide || store.lastSelected() == SelectionKind::section)
        return false;
    if (store.lastSelected() == SelectionKind::slide)
        return put(SlideClip{*slide}, slideClipType, slide->body);
    const std::optional<SlideElement> layer = store.selectedElement();
    return layer && put(LayerClip{slide->id, *layer}, layerClipType, wordsOf(*layer));
}

void pasteFromClipboard(WorkspaceStore &store)
{
    const QMimeData *contents = clipboardContents();
    if (!contents
        || takeClip(*contents, slideClipType, ProjectCodec::decodeSlideClip, store,
                    &WorkspaceStore::pasteSlide)
        || takeClip(*contents, layerClipType, ProjectCodec::decodeLayerClip, store,
                    &WorkspaceStore::pasteLayer)) {
        return;
    }
    // Programs for texts and tables offer a picture of what was copied, too; those for files offer
    // their names.
    const bool hasFiles = !filesIn(*contents).isEmpty();
    const QString text = contents->hasText() && !hasFiles ? pastedText(contents) : QString();
    if (!text.trimmed().isEmpty()) {
        takeText(text, store);
    } else if (const std::optional<SlideMedia> image = imageIn(*contents)) {
        store.addImageLayer(*image);
    }
}

void takeSongs(QWidget &widget)
{
    widget.setProperty(takesSongsProperty, true);
}

} // namespace quenara
