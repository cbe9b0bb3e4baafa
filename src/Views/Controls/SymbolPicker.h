#pragma once

#include <QButtonGroup>
#include <QList>
#include <QWidget>

namespace quenara {

/// One of a few choices, each of which is a symbol. Shows the one that setValue() gives.
class SymbolPicker : public QWidget
{
    Q_OBJECT

public:
    struct Choice
    {
        QString symbol; ///< as in `resources/icons.list`
        QString title;
        QString value;
    };

    SymbolPicker(const QString &title, const QList<Choice> &choices, QWidget *parent = nullptr);

    /// Empty while none is chosen.
    QString value() const;
    void setValue(const QString &value);

signals:
    void activated(const QString &value);

private:
    QButtonGroup m_buttons;
    QStringList m_values; ///< each at the id of its button
};

} // namespace quenara
