#pragma once

#include <QWidget>

class QLabel;

namespace quenara {

class SelectionBindings;

/// The properties of the selected layer, those of its kind among them; without a layer, a line on
/// how to select one.
class LayerInspector : public QWidget
{
    Q_OBJECT

public:
    explicit LayerInspector(SelectionBindings &selection, QWidget *parent = nullptr);

private:
    void showRows();

    SelectionBindings &m_selection;
    QLabel *m_hint;
    QWidget *m_commonRows;
    QWidget *m_textRows;
    QWidget *m_shapeRows;
};

} // namespace quenara
