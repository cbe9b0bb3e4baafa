#include "EveryEdit.h"

#include "Pictures.h"

namespace quenara::test {

namespace {

using Needs = NamedEdit::Needs;

std::function<void(World &)> call(void (WorkspaceStore::*operation)())
{
    return [operation](World &world) { (world.store.*operation)(); };
}

std::function<void(World &)> callWithPicture(void (WorkspaceStore::*operation)())
{
    return [operation](World &world) {
        world.panels.answer =
            world.written(QStringLiteral("picture.png"), encoded(quarters({8, 8}), "PNG"));
        (world.store.*operation)();
    };
}

std::function<void(World &)> addText(SlideElementKind kind)
{
    return [kind](World &world) { world.store.addTextLayer(kind); };
}

std::function<void(World &)> moveItem(qsizetype delta)
{
    return [delta](World &world) { world.store.moveSelectedServiceItem(delta); };
}

std::function<void(World &)> moveSlide(qsizetype delta)
{
    return [delta](World &world) { world.store.moveSelectedSlide(delta); };
}

void lengthen(QString &text)
{
    text += QStringLiteral(" more");
}

} // namespace

const QList<NamedEdit> &everyEdit()
{
    using Store = WorkspaceStore;
    static const QList<NamedEdit> all = {
        {"rename the project", Needs::nothing, true,
         [](World &w) { w.store.updateProjectName(w.store.project().name + u'+'); }},
        {"update an item", Needs::item, true,
         [](World &w) {
             w.store.updateServiceItem(w.store.selectedServiceItemID().value_or(QString()),
                                       [](ServiceItem &item) { lengthen(item.title); });
         }},
        {"update a slide", Needs::slide, true,
         [](World &w) {
             w.store.updateSelectedSlide([](Slide &slide) {
                 lengthen(slide.title);
                 slide.design.background.dimAmount += 0.125;
             });
         }},
        {"update a layer", Needs::layer, true,
         [](World &w) {
             w.store.updateSelectedElement([](SlideElement &element) {
                 lengthen(element.name);
                 if (element.text)
                     lengthen(element.text->text);
             });
         }},
        {"add an item", Needs::nothing, false,
         [](World &w) { w.store.addServiceItem(ServiceItemType::scripture); }},
        {"import a song", Needs::nothing, false,
         [](World &w) {
             w.store.importSong(QStringLiteral("Song"), QStringLiteral("[A]\na\n\nTag:\nb"));
         }},
        {"import a song without words", Needs::nothing, false,
         [](World &w) { w.store.importSong(QString(), QString()); }},
        {"delete an item", Needs::item, false, call(&Store::deleteSelectedServiceItem)},
        {"move an item down", Needs::item, false, moveItem(1)},
        {"move an item up", Needs::item, false, moveItem(-1)},
        {"move an item two down", Needs::item, false, moveItem(2)},
        {"add a slide", Needs::nothing, false, call(&Store::addSlide)},
        {"duplicate a slide", Needs::slide, false, call(&Store::duplicateSelectedSlide)},
        {"delete a slide", Needs::slide, false, call(&Store::deleteSelectedSlide)},
        {"move a slide down", Needs::slide, false, moveSlide(1)},
        {"move a slide up", Needs::slide, false, moveSlide(-1)},
        {"apply a template", Needs::slide, false,
         [](World &w) { w.store.applyTemplateToSelectedSlide(QStringLiteral("announcement")); }},
        {"add a text", Needs::slide, false, addText(SlideElementKind::text)},
        {"add a scripture", Needs::slide, false, addText(SlideElementKind::scriptureText)},
        {"add a lyric", Needs::slide, false, addText(SlideElementKind::songLyricText)},
        {"add a shape", Needs::slide, false, call(&Store::addShapeLayer)},
        {"add a picture", Needs::slide, false, callWithPicture(&Store::addImageLayerWithPanel)},
        {"set the background's picture", Needs::slide, false,
         callWithPicture(&Store::setBackgroundImageWithPanel)},
        {"duplicate a layer", Needs::layer, false, call(&Store::duplicateSelectedElement)},
        {"delete a layer", Needs::layer, false, call(&Store::deleteSelectedElement)},
        {"bring a layer forward", Needs::layer, false, call(&Store::bringSelectedElementForward)},
        {"send a layer backward", Needs::layer, false, call(&Store::sendSelectedElementBackward)},
    };
    return all;
}

} // namespace quenara::test
