#pragma once

#include <QString>

/// The family's component that provides a database file from a template: three values, in this order, then
/// the action.
class DatabaseFile {
public:
    void setPassword(const QString& password) { m_password = password; } ///< Of the file; a copy gets none.
    void setFileName(const QString& path) { m_fileName = path; }
    void setTemplate(const QString& path) { m_template = path; }
    /// Makes the file as a copy of the template when it does not exist; an existing file is left alone.
    /// \throws sys::FileError when the copy cannot be made; jet::Error when the template is no whole
    /// database.
    void Provide() const;

private:
    QString m_password;
    QString m_fileName;
    QString m_template;
};
