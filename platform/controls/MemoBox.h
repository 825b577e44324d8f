#pragma once

#include "platform/controls/BoundField.h"

#include <QPlainTextEdit>

/// A text of several lines, which may be bound to a field of a data control. Tab moves on. Setters and
/// property writes are told apart as in EditField.
class MemoBox : public QPlainTextEdit, public BoundField {
    Q_OBJECT
    Q_PROPERTY(QString Text READ Text WRITE enterText)
    Q_PROPERTY(QString DataField READ DataField)

public:
    explicit MemoBox(QWidget* parent = nullptr);

    QString Text() const { return toPlainText(); }
    void setText(const QString& text);
    void enterText(const QString& text); ///< As the user would.

Q_SIGNALS:
    void Change(); ///< The user has changed the text.

protected:
    void contextMenuEvent(QContextMenuEvent* event) override;

private:
    void showValue(const jet::Value& value) override;
    std::optional<jet::Value> changedValue() const override;

    bool m_silent = false;
    bool m_changed = false;
};
