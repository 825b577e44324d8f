#include "platform/controls/Wiring.h"

using namespace Qt::StringLiterals;

void nummeriere(const QString& name, std::initializer_list<QObject*> elements)
{
    int index = 0;
    for (QObject* const element : elements)
        element->setObjectName(name + u'(' + QString::number(index++) + u')');
}
