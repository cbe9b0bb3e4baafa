#include "EveryEdit.h"

#include <QMetaMethod>

namespace quenara::test {

namespace {

using Needs = NamedEdit::Needs;

using Run = std::function<void(WorkspaceStore &)>;

Run addText(SlideElementKind kind)
{
    return [kind](WorkspaceStore &store) { store.addTextLayer(kind); };
}

Run moveItem(qsizetype delta)
{
    return [delta](WorkspaceStore &store) { store.moveSelectedServiceItem(delta); };
}

Run moveSlide(qsizetype delta)
{
    return [delta](WorkspaceStore &store) { store.moveSelectedSlide(delta); };
}

/// An operation without arguments that no gesture takes in.
NamedEdit plain(const char *name, const char *operation, Needs needs,
                void (WorkspaceStore::*function)())
{
    return {name, operation, needs, false,
            [function](WorkspaceStore &store) { (store.*function)(); }};
}

void lengthen(QString &text)
{
    text += QStringLiteral(" more");
}

} // namespace

QStringList editingOperations()
{
    const QMetaObject &store = WorkspaceStore::staticMetaObject;
    QStringList operations;
    for (int i = store.methodOffset(); i < store.methodCount(); ++i) {
        if (store.method(i).methodType() == QMetaMethod::Slot)
            operations.append(QString::fromLatin1(store.method(i).name()));
    }
    operations.sort();
    return operations;
}

const QList<NamedEdit> &everyEdit()
{
    using Store = WorkspaceStore;
    static const QList<NamedEdit> all = {
        {"rename the project", "updateProjectName", Needs::nothing, true,
         [](Store &s) { s.updateProjectName(s.project().name + u'+'); }},
        {"update an item", "updateServiceItem", Needs::item, true,
         [](Store &s) {
             s.updateServiceItem(s.selectedServiceItemID().value_or(QString()),
                                 [](ServiceItem &item) { lengthen(item.title); });
         }},
        {"update a slide", "updateSelectedSlide", Needs::slide, true,
         [](Store &s) {
             s.updateSelectedSlide([](Slide &slide) {
                 lengthen(slide.title);
                 slide.design.background.dimAmount += 0.125;
             });
         }},
        {"update a layer", "updateSelectedElement", Needs::layer, true,
         [](Store &s) {
             s.updateSelectedElement([](SlideElement &element) {
                 lengthen(element.name);
                 if (element.text)
                     lengthen(element.text->text);
             });
         }},
        {"add an item", "addServiceItem", Needs::nothing, false,
         [](Store &s) { s.addServiceItem(ServiceItemType::scripture); }},
        {"import a song", "importSong", Needs::nothing, false,
         [](Store &s) {
             s.importSong(QStringLiteral("Song"), QStringLiteral("[A]\na\n\nTag:\nb"));
         }},
        {"import a song without words", "importSong", Needs::nothing, false,
         [](Store &s) { s.importSong(QString(), QString()); }},
        plain("delete an item", "deleteSelectedServiceItem", Needs::item,
              &Store::deleteSelectedServiceItem),
        {"move an item down", "moveSelectedServiceItem", Needs::item, false, moveItem(1)},
        {"move an item up", "moveSelectedServiceItem", Needs::item, false, moveItem(-1)},
        {"move an item two down", "moveSelectedServiceItem", Needs::item, false, moveItem(2)},
        {"move an item to the end", "moveServiceItem", Needs::item, false,
         [](Store &s) {
             s.moveServiceItem(s.selectedServiceItemID().value_or(QString()),
                               s.project().serviceItems.size() - 1);
         }},
        plain("add a slide", "addSlide", Needs::nothing, &Store::addSlide),
        {"paste a slide", "pasteSlide", Needs::nothing, false,
         [](Store &s) { s.pasteSlide({Slide()}); }},
        plain("duplicate a slide", "duplicateSelectedSlide", Needs::slide,
              &Store::duplicateSelectedSlide),
        plain("delete a slide", "deleteSelectedSlide", Needs::slide, &Store::deleteSelectedSlide),
        {"move a slide down", "moveSelectedSlide", Needs::slide, false, moveSlide(1)},
        {"move a slide up", "moveSelectedSlide", Needs::slide, false, moveSlide(-1)},
        {"move a slide to the last item", "moveSlide", Needs::slide, false,
         [](Store &s) {
             const QList<ServiceItem> items = s.project().serviceItems;
             if (!items.isEmpty())
                 s.moveSlide(s.selectedSlideID().value_or(QString()), items.constLast().id, 0);
         }},
        {"step a slide down", "stepSelectedSlide", Needs::slide, false,
         [](Store &s) { s.stepSelectedSlide(1); }},
        {"step a slide up", "stepSelectedSlide", Needs::slide, false,
         [](Store &s) { s.stepSelectedSlide(-1); }},
        {"apply a template", "applyTemplateToSelectedSlide", Needs::slide, false,
         [](Store &s) { s.applyTemplateToSelectedSlide(QStringLiteral("announcement")); }},
        {"add a text", "addTextLayer", Needs::slide, false, addText(SlideElementKind::text)},
        {"add a scripture", "addTextLayer", Needs::slide, false,
         addText(SlideElementKind::scriptureText)},
        {"add a lyric", "addTextLayer", Needs::slide, false,
         addText(SlideElementKind::songLyricText)},
        plain("add a shape", "addShapeLayer", Needs::slide, &Store::addShapeLayer),
        {"paste a layer", "pasteLayer", Needs::slide, false, [](Store &s) { s.pasteLayer({}); }},
        {"paste a text", "pasteText", Needs::slide, false,
         [](Store &s) { s.pasteText(QStringLiteral("words")); }},
        {"paste an image", "addImageLayer", Needs::slide, false,
         [](Store &s) { s.addImageLayer({}); }},
        {"drop an image", "placeImageLayer", Needs::slide, false,
         [](Store &s) {
             s.placeImageLayer({}, {100, 200});
         }},
        {"drop the background's image", "setBackgroundImage", Needs::slide, false,
         [](Store &s) { s.setBackgroundImage({}); }},
        plain("add an image", "addImageLayerWithPanel", Needs::slide,
              &Store::addImageLayerWithPanel),
        plain("set the background's image", "setBackgroundImageWithPanel", Needs::slide,
              &Store::setBackgroundImageWithPanel),
        plain("duplicate a layer", "duplicateSelectedElement", Needs::layer,
              &Store::duplicateSelectedElement),
        plain("delete a layer", "deleteSelectedElement", Needs::layer,
              &Store::deleteSelectedElement),
        plain("centre a layer horizontally", "centerSelectedElementHorizontally", Needs::layer,
              &Store::centerSelectedElementHorizontally),
        plain("centre a layer vertically", "centerSelectedElementVertically", Needs::layer,
              &Store::centerSelectedElementVertically),
        plain("bring a layer forward", "bringSelectedElementForward", Needs::layer,
              &Store::bringSelectedElementForward),
        plain("send a layer backward", "sendSelectedElementBackward", Needs::layer,
              &Store::sendSelectedElementBackward),
    };
    return all;
}

} // namespace quenara::test
