#pragma once

#include "platform/controls/ComboField.h"

#include <QDate>

class QCalendarWidget;

/// A date, typed or picked from a calendar.
///
/// What is typed is completed when it is taken: "1.3.24" becomes 01.03.2024, "1.3." gets the year of MinDate,
/// else the year that stood there, else this year. A text that is no date stays as it is; Date is then
/// invalid. A comma types a dot, as the number block has no other; the arrow keys go day by day. Leaving with
/// a date outside MinDate to MaxDate is refused, and where there is a MinDate also with a text that is no
/// date; the program itself may set any.
class DateCombo : public ComboField {
    Q_OBJECT
    Q_PROPERTY(QDate Date READ Date WRITE enterDate)
    Q_PROPERTY(QDate MinDate READ MinDate WRITE setMinDate)
    Q_PROPERTY(QDate MaxDate READ MaxDate WRITE setMaxDate)

public:
    explicit DateCombo(QWidget* parent = nullptr);

    QDate Date() const; ///< Of the text as it stands; invalid where that is no date, or empty.
    void setDate(QDate date);
    void enterDate(QDate date); ///< As the user would.

    QDate MinDate() const { return m_minDate; } ///< Invalid: no bound.
    void setMinDate(QDate date) { m_minDate = date; }
    QDate MaxDate() const { return m_maxDate; } ///< Invalid: no bound.
    void setMaxDate(QDate date) { m_maxDate = date; }

    bool DroppedDown() const override;
    void showPopup() override;
    void hidePopup() override;
    QSize sizeHint() const override;
    QSize minimumSizeHint() const override { return sizeHint(); }

Q_SIGNALS:
    void Change(); ///< The user has taken another date or text, not on every key.

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
    void wheelEvent(QWheelEvent* event) override;
    bool accepts() override;

    int rowOf(const QString&) const override { return -1; }
    QString meant(const QString& text) const override;

private:
    void taken() override;
    int yearMeant() const;
    QString refusal() const; ///< Why the text may not stay; empty: it may.
    void step(int days);
    void pick(QDate date);
    QCalendarWidget& calendar();

    QDate m_minDate;
    QDate m_maxDate;
    QDate m_lastDate;
    QWidget* m_popup = nullptr;
    QCalendarWidget* m_calendar = nullptr;
};
