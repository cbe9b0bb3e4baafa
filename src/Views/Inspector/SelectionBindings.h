#pragma once

#include "BoundControls.h"
#include "SlideDesignModels.h"

#include <QObject>

#include <functional>
#include <optional>
#include <type_traits>

namespace quenara {

/// The values of the selected slide and layer, for controls to show and change.
class SelectionBindings : public QObject
{
    Q_OBJECT

public:
    explicit SelectionBindings(WorkspaceStore &store, QObject *parent = nullptr);

    WorkspaceStore &store() const { return m_store; }
    const std::optional<Slide> &slide() const { return m_slide; }
    const std::optional<SlideElement> &layer() const { return m_layer; }

    /// Binds to the value in the selected slide that \a field points to. \a field returns nullptr
    /// for a slide without that value.
    template<class Field>
    [[nodiscard]] auto ofSlide(Field field)
    {
        return bindingTo(m_slide, field, &WorkspaceStore::updateSelectedSlide);
    }

    /// The same in the selected layer.
    template<class Field>
    [[nodiscard]] auto ofLayer(Field field)
    {
        return bindingTo(m_layer, field, &WorkspaceStore::updateSelectedElement);
    }

    /// Binds \a control to \a binding and returns it.
    template<class Control, class Value>
    Control *bound(Control *control, const Binding<Value> &binding)
    {
        m_controls.bind(*control, binding);
        return control;
    }

signals:
    /// Another slide or layer is selected, or the selected one has changed. The controls show it.
    void changed();

private:
    template<class Record, class Field>
    auto bindingTo(const std::optional<Record> &record, Field field,
                   void (WorkspaceStore::*update)(const std::function<void(Record &)> &))
    {
        using Value = std::remove_pointer_t<std::invoke_result_t<Field, Record &>>;
        return Binding<Value>{[&record, field]() -> std::optional<Value> {
                                  std::optional<Record> copy = record;
                                  const Value *place = copy ? field(*copy) : nullptr;
                                  return place ? std::optional(*place) : std::nullopt;
                              },
                              [this, field, update](const Value &value) {
                                  std::invoke(update, m_store, [&](Record &edited) {
                                      if (Value *place = field(edited))
                                          *place = value;
                                  });
                              }};
    }

    void readStore();

    WorkspaceStore &m_store;
    BoundControls m_controls{m_store};
    std::optional<Slide> m_slide;
    std::optional<SlideElement> m_layer;
};

} // namespace quenara
