#include "platform/controls/ComboAccessible.h"

#include "platform/controls/ComboField.h"

#include <QAccessible>
#include <QAccessibleWidget>

namespace {

class ComboAccessible final : public QAccessibleWidget {
public:
    explicit ComboAccessible(ComboField& combo)
        : QAccessibleWidget(&combo, QAccessible::ComboBox), m_combo(combo)
    {}

    QString text(QAccessible::Text part) const override
    {
        return part == QAccessible::Value ? m_combo.Text() : QAccessibleWidget::text(part);
    }
    void setText(QAccessible::Text part, const QString& text) override
    {
        if (part == QAccessible::Value) m_combo.enterText(text);
    }
    QAccessible::State state() const override
    {
        QAccessible::State state = QAccessibleWidget::state();
        state.editable = true;
        state.hasPopup = true;
        state.expandable = true;
        state.expanded = m_combo.DroppedDown();
        return state;
    }
    QStringList actionNames() const override
    {
        return QStringList{showMenuAction(), pressAction()} + QAccessibleWidget::actionNames();
    }
    void doAction(const QString& name) override
    {
        if (name == showMenuAction() || name == pressAction())
            m_combo.setDroppedDown(!m_combo.DroppedDown());
        else
            QAccessibleWidget::doAction(name);
    }

private:
    ComboField& m_combo;
};

QAccessibleInterface* interfaceOf(const QString&, QObject* object)
{
    auto* const combo = qobject_cast<ComboField*>(object);
    return combo ? new ComboAccessible(*combo) : nullptr;
}

} // namespace

void makeCombosAccessible()
{
    QAccessible::installFactory(interfaceOf);
}
