#include "Copying.h"

#include "Clipboard.h"
#include "ImageFile.h"
#include "ProjectCodec.h"
#include "SongImportService.h"
#include "WorkspaceStore.h"

#include <QApplication>
#include <QBuffer>
#include <QImage>
#include <QMimeData>
#include <QWidget>

#include <array>
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

/// Adds the first image among the files that were copied. False if none were copied.
bool takeFile(const QMimeData &contents, WorkspaceStore &store)
{
    const QList<QUrl> files = filesIn(contents);
    for (const QUrl &file : files) {
        if (const std::optional<SlideMedia> image = imageFromFile(file)) {
            store.addImageLayer(*image);
            break;
        }
    }
    return !files.isEmpty();
}

QByteArray asPng(const QImage &image)
{
    QByteArray bytes;
    QBuffer buffer(&bytes);
    image.save(&buffer, "PNG");
    return bytes;
}

/// The image as its program offers it, which keeps a photograph as small as it was.
std::optional<SlideMedia> imageIn(const QMimeData &contents)
{
    const QString name = QStringLiteral("Pasted image");
    for (const char *type :
         {"image/svg+xml", "image/jpeg", "image/png", "image/webp", "image/gif", "image/bmp"}) {
        const QString format = QString::fromLatin1(type);
        if (!contents.hasFormat(format))
            continue;
        if (const std::optional<SlideMedia> image = imageFromBytes(contents.data(format), name))
            return image;
    }
    const auto image = contents.hasImage() ? qvariant_cast<QImage>(contents.imageData()) : QImage();
    return image.isNull() ? std::nullopt : imageFromBytes(asPng(image), name);
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
                    &WorkspaceStore::pasteLayer)
        || takeFile(*contents, store)) {
        return;
    }
    // Programs for texts and tables offer a picture of what was copied, too.
    const QString text = contents->hasText() ? pastedText(contents) : QString();
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
