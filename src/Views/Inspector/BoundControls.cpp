#include "BoundControls.h"

#include "ColorWell.h"
#include "NumberField.h"
#include "Picker.h"
#include "Slider.h"
#include "Stepper.h"
#include "Switch.h"
#include "SymbolPicker.h"
#include "TextField.h"

#include <utility>

namespace quenara {

BoundControls::BoundControls(WorkspaceStore &store, QObject *parent)
    : QObject(parent), m_store(store)
{}

/// A control without the signal `editingFinished` has finished with each edit. After an edit, the
/// control shows what the store has made of the value.
template<class Control, class Edited, class Write>
void BoundControls::connectControl(Control &control, Edited edited, Write write,
                                   std::function<void()> show)
{
    constexpr bool hasSessions = requires { &Control::editingFinished; };
    connect(&control, edited, this, [this, &control, write, show](const auto &value) {
        beginGesture(control);
        write(value);
        if constexpr (!hasSessions)
            endGesture(control);
        show();
    });
    if constexpr (hasSessions)
        connect(&control, &Control::editingFinished, this, [&, this] { endGesture(control); });
    if constexpr (requires { &Control::editingCancelled; })
        connect(&control, &Control::editingCancelled, this, [&, this] { cancelGesture(control); });
    if constexpr (requires { control.endEditing(); })
        m_ends.emplace_back([&control] { control.endEditing(); });
    show();
    m_shows.push_back(std::move(show));
}

void BoundControls::bind(TextField &field, const Binding<QString> &binding)
{
    connectControl(field, &TextField::textEdited, binding.write,
                   [&field, read = binding.read] { field.showText(read().value_or(QString())); });
}

void BoundControls::bind(NumberField &field, const Binding<double> &binding)
{
    connectControl(field, &NumberField::edited, binding.write,
                   [&field, read = binding.read] { field.showNumber(read()); });
}

void BoundControls::bind(Slider &slider, const Binding<double> &binding)
{
    connectControl(slider, &Slider::edited, binding.write,
                   [&slider, read = binding.read] { slider.setValue(read().value_or(0)); });
}

void BoundControls::bind(Stepper &stepper, const Binding<double> &binding)
{
    connectControl(stepper, &Stepper::edited, binding.write,
                   [&stepper, read = binding.read] { stepper.setValue(read().value_or(0)); });
}

void BoundControls::bind(Switch &control, const Binding<bool> &binding)
{
    connectControl(control, &Switch::clicked, binding.write,
                   [&control, read = binding.read] { control.setChecked(read().value_or(false)); });
}

void BoundControls::bind(ColorWell &well, const Binding<RGBAColor> &binding)
{
    connectControl(well, &ColorWell::edited, binding.write,
                   [&well, read = binding.read] { well.setColor(read()); });
}

void BoundControls::bind(Picker &picker, const Binding<QString> &binding)
{
    connectControl(
        picker, &Picker::activated,
        [&picker, write = binding.write](int index) { write(picker.itemData(index).toString()); },
        [&picker, read = binding.read] {
            picker.setCurrentIndex(picker.findData(read().value_or(QString())));
        });
}

void BoundControls::bind(SymbolPicker &picker, const Binding<QString> &binding)
{
    connectControl(picker, &SymbolPicker::activated, binding.write,
                   [&picker, read = binding.read] { picker.setValue(read().value_or(QString())); });
}

void BoundControls::show() const
{
    for (const auto &show : m_shows)
        show();
}

void BoundControls::endEditing() const
{
    for (const auto &end : m_ends)
        end();
}

void BoundControls::beginGesture(const QObject &control)
{
    if (m_edited == &control && m_store.isGestureOpen(m_gesture))
        return;
    m_edited = &control;
    m_gesture = m_store.beginGesture();
}

void BoundControls::endGesture(const QObject &control)
{
    if (m_edited == &control)
        m_store.endGesture(m_gesture);
}

void BoundControls::cancelGesture(const QObject &control)
{
    if (m_edited == &control)
        m_store.cancelGesture(m_gesture);
}

} // namespace quenara
