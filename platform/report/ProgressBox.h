#pragma once

#include "platform/report/Paginator.h"

#include <QElapsedTimer>
#include <QString>

#include <memory>

class QProgressDialog;
class QWidget;

namespace report {

/// A box that comes up when work takes longer than a second, with a button that ends it. Goes with this
/// object. It comes up, and the button is heard, when progress is told; a message that is shown meanwhile
/// lies above it.
class ProgressBox {
public:
    ProgressBox(const QString& what, QWidget* parent);
    ~ProgressBox();
    Q_DISABLE_COPY_MOVE(ProgressBox)

    Progress progress(); ///< Lives no longer than the box.

private:
    std::unique_ptr<QProgressDialog> m_box;
    QElapsedTimer m_sinceBegin;
};

} // namespace report
