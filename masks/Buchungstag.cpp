#include "masks/Buchungstag.h"

#include "masks/ErfassungsmaskenModul.h"
#include "platform/controls/Wiring.h"

Buchungstag::Buchungstag(DateCombo& Buchdatum, QPushButton& heute, std::function<void()> weiter,
                         QObject* maske)
    : QObject(maske), m_Buchdatum(Buchdatum)
{
    verdrahte(&heute, &QPushButton::clicked, this, [this, &heute, weiter = std::move(weiter)] {
        stelleAufHeute(m_Buchdatum);
        if (heute.hasFocus()) weiter();
    });
}

bool Buchungstag::pruefe()
{
    return pruefeDatum(m_Buchdatum);
}
