#pragma once

#include <QColor>
#include <QObject>
#include <QString>

/// One column of a DataGrid.
class GridColumn : public QObject {
    Q_OBJECT
    Q_PROPERTY(QString Caption READ Caption WRITE setCaption)
    Q_PROPERTY(QString DataField READ DataField WRITE setDataField)
    Q_PROPERTY(QString NumberFormat READ NumberFormat WRITE setNumberFormat)
    Q_PROPERTY(bool Visible READ Visible WRITE setVisible)
    Q_PROPERTY(QColor HeadForeColor READ HeadForeColor WRITE setHeadForeColor)
    Q_PROPERTY(int Width READ Width WRITE setWidth)

public:
    using QObject::QObject;

    QString Caption() const { return m_caption; }
    void setCaption(const QString& caption);
    QString DataField() const { return m_dataField; } ///< A column of the record source, in any case.
    void setDataField(const QString& field);
    QString NumberFormat() const
    {
        return m_numberFormat;
    } ///< As jet::formatted() reads it; empty: as the value is.
    void setNumberFormat(const QString& format);
    bool Visible() const { return m_visible; }
    void setVisible(bool visible);
    /// Of the header's text; no valid colour: the style's own. On a dark header it is shown lighter.
    QColor HeadForeColor() const { return m_headForeColor; }
    void setHeadForeColor(const QColor& colour);
    int Width() const { return m_width; } ///< As set by program or user, in pixels; 0: as the contents need.
    void setWidth(int width);

Q_SIGNALS:
    void Changed(); ///< Anything but the width.
    void WidthChanged();

private:
    QString m_caption;
    QString m_dataField;
    QString m_numberFormat;
    bool m_visible = true;
    QColor m_headForeColor;
    int m_width = 0;
};
