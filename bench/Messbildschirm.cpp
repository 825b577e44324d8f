#include "bench/Messbildschirm.h"

#include "platform/controls/CheckBox.h"
#include "platform/controls/ComboBox.h"
#include "platform/controls/DataGrid.h"
#include "platform/controls/DateCombo.h"
#include "platform/controls/TextBox.h"

#include <QApplication>
#include <QElapsedTimer>
#include <QHeaderView>
#include <QKeyEvent>
#include <QPushButton>
#include <QTimer>

#include <stdexcept>
#include <string>

using namespace Qt::StringLiterals;

namespace {

/// Notes the painting of a window.
class Malwaechter : public QObject {
public:
    explicit Malwaechter(QWidget& fenster) { fenster.installEventFilter(this); }
    bool istGemalt() const { return m_gemalt; }
    void vergiss() { m_gemalt = false; }

protected:
    bool eventFilter(QObject* fenster, QEvent* event) override
    {
        m_gemalt = m_gemalt || event->type() == QEvent::Paint;
        return QObject::eventFilter(fenster, event);
    }

private:
    bool m_gemalt = false;
};

} // namespace

void zeigeBisGemalt(QWidget& fenster)
{
    const Malwaechter waechter(fenster);
    fenster.show();
    while (!waechter.istGemalt()) // its children are painted in the same go
        QCoreApplication::processEvents(QEventLoop::WaitForMoreEvents);
}

Messbildschirm::Messbildschirm()
{
    zeigeBisGemalt(m_fenster);
    QCoreApplication::processEvents(); // the stock list comes after the first painting
}

Messbildschirm::~Messbildschirm()
{
    m_fenster.close();
}

template <class Teil>
Teil& Messbildschirm::teil(const char* name) const
{
    auto* const gefunden = m_fenster.findChild<Teil*>(QString::fromLatin1(name));
    if (!gefunden) throw std::runtime_error(std::string("the main screen has no ") + name);
    return *gefunden;
}

const jet::Recordset& Messbildschirm::zeilen(const char* daten) const
{
    return teil<DataControl>(daten).Recordset();
}

void Messbildschirm::filtere()
{
    Q_EMIT teil<DateCombo>("Buchdatum").Change();
}

void Messbildschirm::inSumme(bool wert)
{
    auto& haken = teil<CheckBox>("chkNurSumme");
    if (haken.isChecked() != wert) haken.click();
}

void Messbildschirm::waehle(const char* liste, const QString& wert)
{
    teil<ComboBox>(liste).enterText(wert);
}

void Messbildschirm::waehleTage(QDate von, QDate bis)
{
    teil<DateCombo>("VonDatum").setDate(von);
    teil<DateCombo>("Buchdatum").setDate(bis);
    filtere();
}

void Messbildschirm::waehleJahr(int jahr)
{
    teil<ComboBox>("drpJahr").enterText(QString::number(jahr));
}

void Messbildschirm::klickeKopf(const char* liste, int spalte)
{
    Q_EMIT teil<DataGrid>(liste).horizontalHeader()->sectionClicked(spalte);
}

double Messbildschirm::buche(const QString& kurzel, const std::function<void(QWidget& maske)>& tippe)
{
    auto& liste = teil<DataGrid>("Journalliste");
    Malwaechter waechter(*liste.viewport());
    QElapsedTimer uhr;
    QTimer::singleShot(0, [&] {
        QWidget& maske = *QApplication::activeModalWidget();
        tippe(maske);
        auto& buchen = *maske.findChild<QPushButton*>(u"Command2(1)"_s);
        buchen.setFocus();
        QCoreApplication::processEvents();
        waechter.vergiss();
        uhr.start();
        for (const auto art : {QEvent::KeyPress, QEvent::KeyRelease}) {
            QKeyEvent taste(art, Qt::Key_Return, Qt::NoModifier, u"\r"_s);
            QCoreApplication::sendEvent(&buchen, &taste);
        }
    });
    teil<TextBox>("KurzEingabe").setText(kurzel);
    teil<QPushButton>("Command7(0)").click();
    liste.viewport()->update();
    waechter.vergiss();
    while (!waechter.istGemalt())
        QCoreApplication::processEvents();
    return static_cast<double>(uhr.nsecsElapsed()) / 1e9;
}

bool Messbildschirm::tippe(const char* liste, int spalte, const QString& wort)
{
    auto& tabelle = teil<DataGrid>(liste);
    for (const int zeile : {1, 0}) // the word before ends where the current row changes
        tabelle.setCurrentIndex(tabelle.model()->index(zeile, spalte));
    for (const QChar buchstabe : wort) {
        QKeyEvent taste(QEvent::KeyPress, Qt::Key_unknown, Qt::NoModifier, buchstabe);
        QCoreApplication::sendEvent(&tabelle, &taste);
    }
    return !tabelle.accessibleDescription().contains(u"nicht gefunden");
}

int messeBildschirm(int argc, char** argv, Umfang vorgabe, Umfang voll,
                    const std::function<void(const Umfang&)>& arbeit)
{
    if (qEnvironmentVariableIsEmpty("DISPLAY") && qEnvironmentVariableIsEmpty("QT_QPA_PLATFORM"))
        qputenv("QT_QPA_PLATFORM", "offscreen");
    return messe(QApplication(argc, argv), vorgabe, voll, arbeit);
}
