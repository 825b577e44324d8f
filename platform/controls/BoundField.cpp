#include "platform/controls/BoundField.h"

#include "platform/controls/DataControl.h"

#include <algorithm>

BoundField::~BoundField()
{
    if (m_data) m_data->m_bound.remove(*this);
}

void BoundField::bindTo(DataControl& data, const QString& field)
{
    if (m_data) m_data->m_bound.remove(*this);
    m_data = &data;
    m_field = field;
    data.m_bound.add(*this);
    data.m_bound.show(data.m_recordset.get());
}

bool BoundFields::hasChanges() const
{
    return std::ranges::any_of(m_fields, [](const auto* field) { return field->changedValue().has_value(); });
}

void BoundFields::show(const jet::Recordset* rows) const
{
    if (isEmpty()) return;
    const auto isStored = [&] {
        return rows->AbsolutePosition() >= 0 && rows->RowAt(rows->AbsolutePosition());
    };
    const bool hasRow = rows && (rows->Editing() || isStored());
    for (BoundField* const field : m_fields)
        field->showValue(hasRow ? (*rows)[field->DataField()] : jet::Value());
}

void BoundFields::collect(jet::Recordset& rows) const
{
    for (const BoundField* const field : m_fields) {
        const auto value = field->changedValue();
        if (!value) continue;
        if (!rows.Editing()) rows.Edit();
        rows.Set(field->DataField(), *value);
    }
}
