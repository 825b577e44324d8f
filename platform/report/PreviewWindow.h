#pragma once

#include "platform/report/Document.h"

#include <QWidget>

class QComboBox;
class QHBoxLayout;
class QLabel;
class QSpinBox;

namespace report {

class PageView;

/// Shows a report before it is printed or saved. A window of its own beside the one that asked for it, which
/// it does not block; deletes itself when it is closed.
class PreviewWindow final : public QWidget {
    Q_OBJECT

public:
    PreviewWindow(Document document, const QString& title, QWidget* parent);

private:
    void buildBar(QHBoxLayout& bar);
    void buildTurning(QHBoxLayout& bar);
    void buildZoom(QHBoxLayout& bar);
    void button(QHBoxLayout& bar, const QString& name, const QString& text, const QKeySequence& key,
                void (PreviewWindow::*handler)());
    void Drucken_Click();
    void PdfSpeichern_Click();
    void Zoom_Click(int index);
    void showZoom();

    Document m_document;
    PageView* m_pages;
    QSpinBox* m_page = nullptr;
    QComboBox* m_zoom = nullptr;
};

} // namespace report
