#pragma once

#include <QString>
#include <QWidget>

namespace quenara {

class SegmentedPicker;

/// The content of the settings window: the choice of appearance, shown and told of as the
/// preference's stored text.
class PreferencesView : public QWidget
{
    Q_OBJECT

public:
    explicit PreferencesView(QWidget *parent = nullptr);

    /// A text that stands for no appearance selects none.
    void setAppAppearance(const QString &rawValue);

signals:
    /// What the operator chooses.
    void appAppearanceChosen(const QString &rawValue);

private:
    SegmentedPicker *m_appearances;
};

} // namespace quenara
