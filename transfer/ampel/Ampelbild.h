#pragma once

#include <QIcon>
#include <QWidget>

/// One lamp of the traffic light: an icon of 16 x 16 pixels, drawn sharp on screens of up to twice that
/// resolution.
class Ampelbild : public QWidget {
    Q_OBJECT

public:
    /// `name` is that of the widget and of the icon; `bedeutung` is what hovering and assistive tools say.
    Ampelbild(const QString& name, const QString& bedeutung, QWidget& ampel);

protected:
    void paintEvent(QPaintEvent* event) override;

private:
    QIcon m_bild;
};
