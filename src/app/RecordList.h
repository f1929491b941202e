#pragma once

#include <QTreeWidget>

/// A list of records, one row each, several columns, found again by the record's key. Its head and
/// its rows are equally high, its columns wide enough for any head.
class RecordList : public QTreeWidget {
    Q_OBJECT

public:
    RecordList(const QString& name, const QStringList& columns, QWidget* parent = nullptr);
    ~RecordList() override;

    /// Appends a row that stands for the record with the key.
    QTreeWidgetItem* AddRow(const QString& key, const QStringList& texts);
    /// The key of a row.
    static QString KeyOf(const QTreeWidgetItem& row);
    /// The row that the operator selected; null when there is none.
    QTreeWidgetItem* SelectedRow() const;
    /// Every row, from top to bottom.
    QList<QTreeWidgetItem*> Rows() const;
    /// The row of the record with the key; null when there is none.
    QTreeWidgetItem* RowOf(const QString& key) const;
    /// What an empty list says in its place of the rows.
    void SetEmptyText(const QString& text);
    bool IsEmpty() const { return topLevelItemCount() == 0; }

protected:
    void keyPressEvent(QKeyEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;
    void mouseDoubleClickEvent(QMouseEvent* event) override;
    void paintEvent(QPaintEvent* event) override;

private:
    int rowHeight() const;
    void describe();

    QString m_emptyText;
};
