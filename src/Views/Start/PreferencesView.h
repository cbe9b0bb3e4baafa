#pragma once

#include <QString>
#include <QWidget>

namespace quenara {

class SegmentedPicker;

/// The content of the settings window: the choice of appearance. It is set and announced as the
/// text that is stored.
class PreferencesView : public QWidget
{
    Q_OBJECT

public:
    explicit PreferencesView(QWidget *parent = nullptr);

    /// Shows the appearance that is stored as \a rawValue, or none if that text stands for none.
    void setAppAppearance(const QString &rawValue);

signals:
    /// The operator has chosen the appearance that is stored as \a rawValue.
    void appAppearanceChosen(const QString &rawValue);

private:
    SegmentedPicker *m_appearances;
};

} // namespace quenara
