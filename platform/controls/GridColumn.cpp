#include "platform/controls/GridColumn.h"

void GridColumn::setCaption(const QString& caption)
{
    m_caption = caption;
    Q_EMIT Changed();
}

void GridColumn::setDataField(const QString& field)
{
    m_dataField = field;
    Q_EMIT Changed();
}

void GridColumn::setNumberFormat(const QString& format)
{
    m_numberFormat = format;
    Q_EMIT Changed();
}

void GridColumn::setVisible(bool visible)
{
    m_visible = visible;
    Q_EMIT Changed();
}

void GridColumn::setHeadForeColor(const QColor& colour)
{
    m_headForeColor = colour;
    Q_EMIT Changed();
}

void GridColumn::setWidth(int width)
{
    m_width = width;
    Q_EMIT WidthChanged();
}
