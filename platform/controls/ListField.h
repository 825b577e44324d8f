#pragma once

#include "platform/controls/ComboField.h"

/// A combo with a list to choose from. Typing completes to the only entry that begins so, in any case, the
/// added part selected: of several nobody knows which is meant, and one must not be booked for the other. A
/// text that the list has in another spelling is taken in the list's.
class ListField : public ComboField {
    Q_OBJECT
    Q_PROPERTY(bool ListOnly READ ListOnly WRITE setListOnly)

public:
    /// The user can only choose: typing goes to the first entry that begins so, or is not taken. The program
    /// can still set any text, which stays shown.
    bool ListOnly() const { return m_listOnly; }
    void setListOnly(bool listOnly);

    /// The row of the list, from 0, that has the text; -1: none.
    int ListIndex() const { return rowOf(Text()); }

Q_SIGNALS:
    void Change(); ///< The user has changed the text; while he types, once per character.
    /// The user has chosen: in the list, with an arrow key, or by typing another text and leaving it.
    void Click();

protected:
    explicit ListField(QWidget* parent);

    bool eventFilter(QObject* watched, QEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
    QString meant(const QString& text) const override;
    void showAsTable(); ///< Shows all columns of the list, with their heads.

private:
    virtual QString entry(int row) const = 0; ///< The text of a row.
    /// The entries that begin so, each text once, in the list's order, and no more than `most`.
    virtual QStringList beginning(const QString& begun, int most) const = 0;
    QString completion(const QString& begun) const;
    void fitList() override;
    void typed() override { Q_EMIT Change(); }
    void taken() override { Q_EMIT Click(); }
    void complete(const QString& begun);

    bool m_listOnly = false;
    bool m_deletes = false;
    int m_typedAt = 0; // where the selection began before a key
};
