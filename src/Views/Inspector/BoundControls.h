#pragma once

#include "RawEnum.h"
#include "WorkspaceStore.h"

#include <QObject>

#include <functional>
#include <optional>
#include <vector>

namespace quenara {

class ColorWell;
class NumberField;
class Picker;
class Slider;
class Stepper;
class Switch;
class SymbolPicker;
class TextField;

/// A value of the store as a control shows and changes it.
template<class Value>
struct Binding
{
    std::function<std::optional<Value>()> read; ///< nothing where there is none to be shown
    std::function<void(const Value &)> write; ///< by one operation of the store
};

/// Keeps controls in step with the store: they show what is read and write what the operator makes
/// of it. One pull, one typing, one dialog, one click is one gesture of the store.
///
/// The controls must outlive it or be of one parent with its owner.
class BoundControls : public QObject
{
    Q_OBJECT

public:
    explicit BoundControls(WorkspaceStore &store, QObject *parent = nullptr);

    void bind(TextField &field, const Binding<QString> &binding);
    void bind(NumberField &field, const Binding<double> &binding);
    void bind(Slider &slider, const Binding<double> &binding);
    void bind(Stepper &stepper, const Binding<double> &binding);
    void bind(Switch &control, const Binding<bool> &binding);
    void bind(ColorWell &well, const Binding<RGBAColor> &binding);
    /// By the data of the picker's choices. A value that is none of them is shown as it is.
    void bind(Picker &picker, const Binding<QString> &binding);
    void bind(SymbolPicker &picker, const Binding<QString> &binding);

    /// The choices are raw values.
    template<class Choices, RawEnum E>
    void bind(Choices &picker, const Binding<E> &binding)
    {
        const auto readRaw = [read = binding.read]() -> std::optional<QString> {
            const std::optional<E> value = read();
            return value ? std::optional(rawValue(*value)) : std::nullopt;
        };
        const auto writeRaw = [write = binding.write](const QString &raw) {
            if (const std::optional<E> value = fromRawValue<E>(raw))
                write(*value);
        };
        bind(picker, Binding<QString>{readRaw, writeRaw});
    }

    /// Has every control show its value, as it does from the moment it is bound.
    void show() const;

    /// Ends what is half done in the controls, as what they are about has changed. What is seen of
    /// it stays, as one undo step.
    void endEditing() const;

private:
    template<class Control, class Edited, class Write>
    void connectControl(Control &control, Edited edited, Write write, std::function<void()> show);
    void beginGesture(const QObject &control);
    void endGesture(const QObject &control);
    void cancelGesture(const QObject &control);

    WorkspaceStore &m_store;
    std::vector<std::function<void()>> m_shows;
    std::vector<std::function<void()>> m_ends;
    const QObject *m_edited = nullptr; ///< the control whose gesture the last one is
    GestureID m_gesture{};
};

} // namespace quenara
