#pragma once

#include "platform/controls/BoundField.h"
#include "platform/controls/ListField.h"

#include <QStringList>

class QStandardItemModel;

/// A combo whose list the program fills, with one or more columns. Its text may be bound to a field of a data
/// control.
class ComboBox : public ListField, public BoundField {
    Q_OBJECT
    Q_PROPERTY(QString DataField READ DataField)

public:
    explicit ComboBox(QWidget* parent = nullptr);

    /// Gives the list columns with these heads and empties it. `shown` is the one, from 0, whose cell is the
    /// text.
    void setColumns(const QStringList& heads, int shown);
    void AddItem(const QStringList& cells); ///< Adds a row at the end; the shown text stays as it is.
    void AddItem(const QString& text) { AddItem(QStringList{text}); }
    void Clear(); ///< Empties the list; the shown text stays as it is.
    int ListCount() const { return count(); }
    QString Cell(int row, int column) const;

private:
    int rowOf(const QString& text) const override;
    QString entry(int row) const override { return itemText(row); }
    QStringList beginning(const QString& begun, int most) const override;

    void showValue(const jet::Value& value) override;
    std::optional<jet::Value> changedValue() const override;

    QStandardItemModel& m_list;
    bool m_changed = false;
};
