#pragma once

#include "platform/jet/Recordset.h"

#include <QPointer>
#include <QString>

#include <optional>
#include <vector>

class DataControl;

/// A control that shows one field of a data control's current row and lets the user change it. The data
/// control says when to show, and asks for what was changed when it is written: by UpdateRecord, by a move,
/// find or close.
class BoundField {
public:
    virtual ~BoundField();
    Q_DISABLE_COPY_MOVE(BoundField)

    /// Shows the field from now on; the binding ends with either of the two objects.
    void bindTo(DataControl& data, const QString& field);
    const QString& DataField() const { return m_field; }

protected:
    BoundField() = default;

private:
    friend class BoundFields;
    /// Shows a value that the user has not changed; NULL as well where there is no row. Fires no handler.
    virtual void showValue(const jet::Value& value) = 0;
    /// What the user has made of it since it was shown; nothing if he has not touched it.
    virtual std::optional<jet::Value> changedValue() const = 0;

    QPointer<DataControl> m_data;
    QString m_field;
};

/// The fields that show the current row of a data control.
class BoundFields {
public:
    void add(BoundField& field) { m_fields.push_back(&field); }
    void remove(BoundField& field) { std::erase(m_fields, &field); }
    bool isEmpty() const { return m_fields.empty(); }
    bool hasChanges() const; ///< By the user, since they were shown.

    /// Another program may have deleted the row; a field then has nothing to show and the next use of the row
    /// tells. `rows`: null while there are none.
    void show(const jet::Recordset* rows) const;
    void collect(jet::Recordset& rows) const; ///< Edits the current row where the user has changed something.

private:
    std::vector<BoundField*> m_fields;
};
