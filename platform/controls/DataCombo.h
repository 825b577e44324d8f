#pragma once

#include "platform/controls/ListField.h"

#include <vector>

class DataControl;

/// A combo whose list is the rows of a data control, with as many columns as wanted. Its text is the field
/// shown of a row; where users know the row by another field too (the name of a place whose code is shown),
/// typing that picks the row.
///
/// Reads the rows on view, and to find a text those up to the row that has it. What the engine refuses
/// meanwhile is told by the common error report.
class DataCombo : public ListField {
    Q_OBJECT
    Q_PROPERTY(QString DataFieldToDisplay READ DataFieldToDisplay WRITE setDataFieldToDisplay)
    Q_PROPERTY(QString DataFieldList READ DataFieldList WRITE setDataFieldList)
    Q_PROPERTY(QString DataFieldToFind READ DataFieldToFind WRITE setDataFieldToFind)
    Q_PROPERTY(QString Value READ Value WRITE enterValue)

public:
    explicit DataCombo(QWidget* parent = nullptr);

    QString DataFieldToDisplay() const { return m_shownField; } ///< The field that is the text.
    void setDataFieldToDisplay(const QString& field);
    QString DataFieldList() const
    {
        return m_valueField;
    } ///< The field behind Value; empty: that of the text.
    void setDataFieldList(const QString& field);
    QString DataFieldToFind() const
    {
        return m_foundField;
    } ///< A field that may be typed instead; empty: none.
    void setDataFieldToFind(const QString& field);
    /// Rows whose shown field is empty have the one to find as their text: a partner without a short code is
    /// not lost.
    void setFindFillsIn(bool fillsIn);
    /// Adds a column to the list; without any the list shows the field that is the text, without a head.
    void addColumn(const QString& caption, const QString& field, const QString& numberFormat = {});
    /// The rows of the list, once fields and columns are told. Each Refresh of the data control refills the
    /// list; from the next one on it is a snapshot.
    void setDataSource(DataControl& source);

    /// Of the listed row that has the text; without one the text itself where both are the same field, else
    /// empty.
    QString Value() const;
    void setValue(const QString& value);   ///< One that is not listed becomes the text.
    void enterValue(const QString& value); ///< As the user would.

    void showPopup() override;

private:
    struct Entry {
        QString shown, value, found;
    };
    class Model;
    using Part = QString Entry::*;

    int rowOf(const QString& text) const override;
    QString meant(const QString& text) const override;
    QString entry(int row) const override;
    QStringList beginning(const QString& begun, int most) const override;
    QStringList beginning(Part part, const QString& begun, int most) const;
    QString textOf(const QString& value) const;
    /// The first row whose part satisfies the condition; -1: none.
    template <class Condition>
    int find(Part part, Condition condition) const;
    int findEqual(Part part, const QString& text) const;
    const Entry& entryAt(int row) const;
    Entry read(int row) const;
    void rowsChanged();

    QString m_shownField;
    QString m_valueField;
    QString m_foundField;
    bool m_findFillsIn = false;
    Model& m_list;
    DataControl* m_source = nullptr;
    mutable std::vector<Entry> m_entries; // of the first rows, as far as they were looked at
};
