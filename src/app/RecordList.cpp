#include "app/RecordList.h"

#include "app/Theme.h"

#include <QHeaderView>
#include <QKeyEvent>
#include <QPainter>

#include <algorithm>

RecordList::RecordList(const QString& name, const QStringList& columns, QWidget* parent)
    : QTreeWidget(parent) {
    setObjectName(name);
    setAccessibleName(columns.join(QStringLiteral(", ")));
    setHeaderLabels(columns);
    setRootIsDecorated(false);
    setUniformRowHeights(true);
    setAlternatingRowColors(true);
    setAllColumnsShowFocus(true);
    setSelectionMode(QAbstractItemView::SingleSelection);
    // A press of Tab leaves the list, it does not walk through it.
    setTabKeyNavigation(false);
    setIconSize(QSize(Theme::ButtonIcon, Theme::ButtonIcon));
    header()->setFixedHeight(rowHeight());
    int widestHead = 0;
    for (int column = 0; column < columnCount(); ++column)
        widestHead = std::max(widestHead, header()->sectionSizeHint(column));
    header()->setMinimumSectionSize(widestHead);
    header()->setSectionsMovable(false);
    header()->setStretchLastSection(true);
    for (const auto change : {&QAbstractItemModel::rowsInserted, &QAbstractItemModel::rowsRemoved})
        connect(model(), change, this, &RecordList::describe);
    connect(model(), &QAbstractItemModel::modelReset, this, &RecordList::describe);
}

// The toolkit takes the rows away when this is no list of records any more.
RecordList::~RecordList() {
    model()->disconnect(this);
}

int RecordList::rowHeight() const {
    return std::max(4 * Theme::Unit, fontMetrics().height() + Theme::Unit);
}

QTreeWidgetItem* RecordList::AddRow(const QString& key, const QStringList& texts) {
    auto* row = new QTreeWidgetItem(this, texts);
    row->setData(0, Qt::UserRole, key);
    row->setSizeHint(0, QSize(0, rowHeight()));
    return row;
}

QString RecordList::KeyOf(const QTreeWidgetItem& row) {
    return row.data(0, Qt::UserRole).toString();
}

QTreeWidgetItem* RecordList::SelectedRow() const {
    const QList<QTreeWidgetItem*> selected = selectedItems();
    return selected.isEmpty() ? nullptr : selected.first();
}

QList<QTreeWidgetItem*> RecordList::Rows() const {
    QList<QTreeWidgetItem*> rows;
    for (int i = 0; i < topLevelItemCount(); ++i)
        rows.append(topLevelItem(i));
    return rows;
}

QTreeWidgetItem* RecordList::RowOf(const QString& key) const {
    for (QTreeWidgetItem* row : Rows())
        if (KeyOf(*row) == key)
            return row;
    return nullptr;
}

void RecordList::keyPressEvent(QKeyEvent* event) {
    // The first press selects the row that Tab came to; the one below it may not exist.
    const bool isArrow = event->key() == Qt::Key_Up || event->key() == Qt::Key_Down;
    if (isArrow && currentItem() && !SelectedRow())
        currentItem()->setSelected(true);
    else
        QTreeWidget::keyPressEvent(event);
}

void RecordList::SetEmptyText(const QString& text) {
    m_emptyText = text;
    describe();
}

void RecordList::describe() {
    setAccessibleDescription(IsEmpty() ? m_emptyText : QString());
}

// A click below the rows means none of them, and changes nothing.
void RecordList::mousePressEvent(QMouseEvent* event) {
    if (itemAt(event->pos()))
        QTreeWidget::mousePressEvent(event);
}

void RecordList::mouseDoubleClickEvent(QMouseEvent* event) {
    if (event->button() == Qt::LeftButton)
        QTreeWidget::mouseDoubleClickEvent(event);
}

void RecordList::paintEvent(QPaintEvent* event) {
    QTreeWidget::paintEvent(event);
    if (!IsEmpty())
        return;
    QPainter painter(viewport());
    painter.setPen(palette().color(QPalette::PlaceholderText));
    painter.drawText(viewport()->rect(), Qt::AlignCenter | Qt::TextWordWrap, m_emptyText);
}
