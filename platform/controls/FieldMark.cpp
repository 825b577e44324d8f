#include "platform/controls/FieldMark.h"

#include <QAction>
#include <QComboBox>
#include <QLineEdit>
#include <QStyle>
#include <QVariant>

using namespace Qt::StringLiterals;

void markField(QComboBox& field, const QString& reason)
{
    constexpr auto OwnToolTip = "OwnToolTip";
    const QString name = u"FieldMark"_s;
    auto* mark = field.lineEdit()->findChild<QAction*>(name, Qt::FindDirectChildrenOnly);
    if (!mark && reason.isEmpty()) return;
    if (!mark) {
        const QIcon sign = field.style()->standardIcon(QStyle::SP_MessageBoxWarning, nullptr, &field);
        mark = field.lineEdit()->addAction(sign, QLineEdit::LeadingPosition);
        mark->setObjectName(name);
        field.setProperty(OwnToolTip, field.toolTip());
    }
    const bool wrong = !reason.isEmpty();
    mark->setVisible(wrong);
    mark->setToolTip(reason);
    field.setToolTip(wrong ? reason : field.property(OwnToolTip).toString());
    field.setAccessibleDescription(reason);
}
