#include "platform/report/ProgressBox.h"

#include "platform/system/Application.h"

#include <QProgressDialog>

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
    m_box->setMinimumDuration(Patience);
    m_box->setAutoReset(false);
    m_box->setRange(0, 1);
    m_box->setValue(0); // from now on time is taken
}

ProgressBox::~ProgressBox() = default;

Progress ProgressBox::progress()
{
    return [this](qsizetype done, qsizetype all) {
        m_box->setMaximum(static_cast<int>(all));
        m_box->setValue(static_cast<int>(done));
        return !m_box->wasCanceled();
    };
}

} // namespace report
