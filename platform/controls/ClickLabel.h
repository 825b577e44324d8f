#pragma once

#include <QAbstractButton>

/// The label of a field that does something when it is clicked; it looks so by its underline and the pointer.
/// It never takes the focus, so it neither lies in the way of Tab nor leaves the field; by keyboard it is F5
/// in its field.
class ClickLabel : public QAbstractButton {
    Q_OBJECT
    Q_PROPERTY(QString Caption READ text WRITE setText)

public:
    explicit ClickLabel(QWidget* parent = nullptr);

    /// The field it labels, which gets its caption as accessible name.
    void setBuddy(QWidget& field);

    QSize sizeHint() const override;
    QSize minimumSizeHint() const override { return sizeHint(); }

Q_SIGNALS:
    void Click();

protected:
    void paintEvent(QPaintEvent* event) override;
};
