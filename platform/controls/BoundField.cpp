#include "platform/controls/BoundField.h"

#include "platform/controls/DataControl.h"

BoundField::~BoundField()
{
    if (m_data) m_data->detach(*this);
}

void BoundField::bindTo(DataControl& data, const QString& field)
{
    if (m_data) m_data->detach(*this);
    m_data = &data;
    m_field = field;
    data.attach(*this);
}
