#include "platform/report/ProgressBox.h"

#include "platform/system/Application.h"

#include <QCoreApplication>
#include <QProgressDialog>

#include <limits>

using namespace Qt::StringLiterals;

namespace report {

namespace {

constexpr int Patience = 1000; // ms

} // namespace

ProgressBox::ProgressBox(const QString& what, QWidget* parent)
    : m_box(std::make_unique<QProgressDialog>(what, u"Abbrechen"_s, 0, 0, parent))
{
    m_box->setWindowTitle(sys::applicationTitle());
    m_box->setWindowModality(Qt::ApplicationModal);
    m_box->setMinimumDuration(std::numeric_limits<int>::max()); // it would come up above messages
    m_box->setAutoReset(false);
    m_sinceBegin.start();
}

ProgressBox::~ProgressBox() = default;

Progress ProgressBox::progress()
{
    return [this](qsizetype done, qsizetype all) {
        m_box->setMaximum(static_cast<int>(all));
        m_box->setValue(static_cast<int>(done));
        if (m_sinceBegin.elapsed() >= Patience) {
            m_box->show();
            QCoreApplication::processEvents(); // which the box itself does only while the value grows
        }
        return !m_box->wasCanceled();
    };
}

} // namespace report
