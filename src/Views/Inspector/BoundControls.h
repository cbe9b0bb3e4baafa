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
    std::function<std::optional<Value>()> read; ///< absent where there is no value to show
    std::function<void(const Value &)> write; ///< by one operation of the store
};

/// Keeps controls in step with the store: each shows what its binding reads and writes what the
/// operator enters. One pull of a slider, one typing into a field, one dialog and one click are
/// each one gesture of the store.
///
/// The controls must outlive it.
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
    /// The value is the data of a choice. One that is the data of no choice is shown as it is.
    void bind(Picker &picker, const Binding<QString> &binding);
    void bind(SymbolPicker &picker, const Binding<QString> &binding);

    /// The choices are the raw values of \a E.
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

    /// Has every control show what its binding reads now.
    void show() const;

    /// Ends typing, pulls and dialogs that are under way, for controls that are about to show
    /// another record. What has been written stays, as one undo step.
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
    const QObject *m_edited = nullptr; ///< the control that m_gesture belongs to
    GestureID m_gesture{};
};

} // namespace quenara
