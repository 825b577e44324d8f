#include "platform/family/DatabaseFile.h"

#include "platform/jet/TemplateCopy.h"

void DatabaseFile::Provide() const
{
    jet::copyWhereMissing(m_template, m_password, m_fileName);
}
