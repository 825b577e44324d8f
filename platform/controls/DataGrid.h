#pragma once

#include "platform/controls/Cancel.h"
#include "platform/controls/GridColumn.h"
#include "platform/controls/GridModel.h"
#include "platform/controls/SelectedRows.h"

#include <QPointer>
#include <QTableView>

#include <memory>
#include <optional>

class DataControl;
class GridDelete;
class GridHeader;
class GridSearch;
class GridWidths;

/// The rows of a data control as a table to read, select and delete in. Its current row is the data
/// control's, whoever moves it; reads no more rows than it shows. What is typed finds the next row that
/// begins so in the current column.
///
/// Highlighted are the rows that Delete means: several selected ones, else the current one. A single selected
/// row is the current one: it goes along when another row becomes current.
class DataGrid : public QTableView {
    Q_OBJECT
    Q_PROPERTY(QString Caption READ Caption WRITE setCaption)
    Q_PROPERTY(QString Title READ Title WRITE setTitle)
    Q_PROPERTY(QString EmptyText READ EmptyText WRITE setEmptyText)
    Q_PROPERTY(QString Tag READ Tag WRITE setTag)
    Q_PROPERTY(bool AllowDelete READ AllowDelete WRITE setAllowDelete)

public:
    explicit DataGrid(QWidget* parent = nullptr);
    ~DataGrid() override;

    void setDataSource(DataControl& source);
    GridColumn& addColumn(const QString& caption, const QString& field, const QString& numberFormat = {});
    GridColumn& Columns(int index) const;
    GridColumn&
    Columns(QStringView field) const; ///< By its data field, in any case. \throws jet::Error NoSuchField.
    int ColumnCount() const;
    void setBlank(GridModel::Blank blank); ///< What shows nothing, is copied and handed on as nothing.

    QString
    Caption() const; ///< The line above the columns' captions, and the grid's name for assistive tools.
    void setCaption(const QString& caption);
    QString Title() const
    {
        return m_title;
    } ///< What it is called outside its screen: in a file that is made of it.
    void setTitle(const QString& title) { m_title = title; }
    QString EmptyText() const
    {
        return m_emptyText;
    } ///< Stands where the rows would be while there are none.
    void setEmptyText(const QString& text);
    void setClosedText(
        const QString& text); ///< Stands there while the rows cannot be read; at start nothing does.
    QString Tag() const { return m_tag; } ///< Free for the screen's use.
    void setTag(const QString& tag) { m_tag = tag; }
    bool AllowDelete() const { return m_allowDelete; } ///< Whether the Del key deletes; at start it does.
    void setAllowDelete(bool allow) { m_allowDelete = allow; }

    jet::Bookmark Bookmark() const; ///< Of the current row.
    void setBookmark(const jet::Bookmark& bookmark);
    SelectedRows& SelBookmarks() { return m_selected; }
    const jet::Recordset& rows() const; ///< Those it shows. \throws jet::Error ObjectClosed.
    /// The values of the visible columns of a stretch of rows counted from 0, read now; NULL for a cell that
    /// shows nothing. Rows that another program has deleted are left out. \throws jet::Error.
    std::vector<std::vector<jet::Value>> Values(int first, int count) const
    {
        return m_model->values(first, count);
    }

    /// Marks the header of a column that the rows are sorted by; -1 marks none.
    void showSort(int column, Qt::SortOrder order);

    /// Deletes the rows selected, if they are several, else the current one; within AfterDelete the current
    /// one. Each is made current before its BeforeDelete, of several it alone is selected then and is on
    /// view; when it is gone the next one, else the previous one is current. \throws jet::Error.
    void Delete();
    /// For handlers: whether other rows come before or after this one.
    bool DeletesSeveral() const;
    void EndDeletes(); ///< For handlers: no further row is to be asked about.
    /// Puts the selected rows, else the current one, on the clipboard: the texts as shown, tab-separated,
    /// under a line of the columns' captions. \throws jet::Error.
    void Copy();

Q_SIGNALS:
    void HeadClick(int column); ///< Counted over all columns, hidden ones too; -1: beside them.
    void DblClick();            ///< On a row.
    /// The current row is about to be deleted. `prompt`, true at first, says whether the grid asks the user.
    void BeforeDelete(Cancel& cancel, bool& prompt);
    void AfterDelete();
    /// After each BeforeDelete, whatever became of the row; maybe while an error is on its way, so nothing
    /// may be thrown.
    void DeleteEnded();
    /// After the last of the rows, also when an error or EndDeletes came before. Nothing may be thrown.
    void DeletesEnded();

protected:
    QModelIndex moveCursor(CursorAction action, Qt::KeyboardModifiers modifiers) override;
    void currentChanged(const QModelIndex& current, const QModelIndex& previous) override;
    void selectionChanged(const QItemSelection& selected, const QItemSelection& deselected) override;
    void keyPressEvent(QKeyEvent* event) override;
    void keyboardSearch(const QString& text) override;
    void mousePressEvent(QMouseEvent* event) override;
    void mouseDoubleClickEvent(QMouseEvent* event) override;
    void focusInEvent(QFocusEvent* event) override;
    void changeEvent(QEvent* event) override;
    bool viewportEvent(QEvent* event) override;
    void showEvent(QShowEvent* event) override;
    void scrollContentsBy(int dx, int dy) override;
    void updateGeometries() override;
    void paintEvent(QPaintEvent* event) override;

private:
    void rowsReplaced();
    void rowRemoved(qsizetype row);
    void rememberView();
    void follow();
    void sizeRows();
    void keepTopRowWhole();
    bool selectsOnly(int row) const;
    void selectCurrentAsTheOnlyOne();

    QPointer<DataControl> m_data;
    GridModel* m_model;
    GridHeader* m_header;
    GridSearch* m_search;
    std::unique_ptr<GridWidths> m_widths;
    std::unique_ptr<GridDelete> m_delete;
    SelectedRows m_selected;
    QString m_title;
    QString m_emptyText;
    QString m_closedText;
    QString m_tag;
    bool m_allowDelete = true;
    int m_column = -1; // where the user is in his row; -1: nowhere yet
    struct View {
        int above; // rows of the view above the current one
        int left;  // of the horizontal scroll bar
    };
    std::optional<View> m_view; // while rows are read anew
    bool m_following = false;   // the current row is being set to the data control's
};
