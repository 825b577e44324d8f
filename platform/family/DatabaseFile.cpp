#include "platform/family/DatabaseFile.h"

#include "platform/system/Files.h"

void DatabaseFile::Provide() const
{
    sys::CopyWhereMissing(m_template, m_fileName);
}
