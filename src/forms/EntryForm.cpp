#include "forms/EntryForm.h"

#include "app/Messages.h"
#include "app/PictureButton.h"
#include "app/RecordList.h"
#include "app/TextBoxFocus.h"
#include "app/Theme.h"
#include "core/Guard.h"
#include "forms/KeyPreview.h"

#include <QFrame>
#include <QHBoxLayout>
#include <QLabel>
#include <QLineEdit>
#include <QRegularExpression>

EntryForm::EntryForm(Texts texts, const Records& records, QWidget* parent)
    : QDialog(parent)
    , m_texts(std::move(texts))
    , m_records(records)
    , m_list(new RecordList(m_texts.list, m_texts.columns))
    , m_box(new QLineEdit)
    , m_buttons(new QHBoxLayout) {
    setObjectName(QLatin1StringView(m_texts.screen));
    setWindowTitle(m_texts.caption);
    build();
    connect(m_list, &RecordList::itemClicked, this, &EntryForm::copyNameToBox);
    connect(m_list, &RecordList::itemSelectionChanged, this, &EntryForm::copyNameToBox);
    new KeyPreview(this, KeyPreview::Releases::Pass,
                   [this](int key, const QKeyEvent&) { return onKey(key); });
}

void EntryForm::build() {
    auto* frame = new QFrame;
    frame->setObjectName(QStringLiteral("fraEntry"));
    auto* label = new QLabel(m_texts.labelCaption);
    label->setObjectName(m_texts.label);
    label->setBuddy(m_box);
    m_box->setObjectName(m_texts.box);
    m_box->setAccessibleName(m_texts.labelCaption);
    m_box->setMinimumHeight(5 * Theme::Unit);
    m_box->setMinimumWidth(20 * m_box->fontMetrics().averageCharWidth());
    connect(m_box, &QLineEdit::textEdited, this, &EntryForm::takeLines);
    m_list->SetEmptyText(m_texts.emptyText);
    TextBoxFocus::Attach(m_box);

    auto* entry = new QHBoxLayout(frame);
    entry->setContentsMargins(0, 0, 0, 0);
    entry->setSpacing(Theme::Unit);
    entry->addWidget(label);
    entry->addWidget(m_box, 1);
    entry->addLayout(m_buttons);
    auto* layout = new QVBoxLayout(this);
    layout->setContentsMargins(2 * Theme::Unit, 2 * Theme::Unit, 2 * Theme::Unit, 2 * Theme::Unit);
    layout->setSpacing(2 * Theme::Unit);
    layout->addWidget(m_list, 1);
    layout->addWidget(frame);
    Theme::Resize(*this, 80, 68);

    // The row of the entry box first, for that is where a quiz's typing happens.
    QWidget* last = m_box;
    const auto addButton = [&](const char* name, const char* icon, const QString& toolTip,
                               void (EntryForm::*click)()) {
        auto* button = new PictureButton(QLatin1StringView(name), QLatin1StringView(icon), toolTip);
        connect(button, &PictureButton::clicked, this, click);
        m_buttons->addWidget(button);
        setTabOrder(last, button);
        last = button;
    };
    addButton("cmdAdd", "add", m_texts.addTip, &EntryForm::clickAdd);
    addButton("cmdEdit", "edit", m_texts.editTip, &EntryForm::clickEdit);
    addButton("cmdDelete", "delete", m_texts.deleteTip, &EntryForm::clickDelete);
    setTabOrder(last, m_list);
    m_box->setFocus();
}

bool EntryForm::FillList() {
    const auto rows = m_records.list();
    if (!rows)
        return false;
    m_list->clear();
    for (const Row& row : *rows)
        m_list->AddRow(row.key, row.texts);
    return true;
}

bool EntryForm::onKey(int key) {
    if (key != Qt::Key_Return || !m_texts.enterAdds)
        return false;
    if (!m_box->text().trimmed().isEmpty())
        clickAdd();
    return true;
}

int EntryForm::nameColumn() const {
    return m_list->columnCount() - 1;
}

void EntryForm::copyNameToBox() {
    if (const QTreeWidgetItem* row = m_list->SelectedRow())
        m_box->setText(row->text(nameColumn()));
}

QString EntryForm::selectedKey() const {
    const QTreeWidgetItem* row = m_list->SelectedRow();
    return row ? RecordList::KeyOf(*row) : QString();
}

bool EntryForm::tellWhenFailed(bool done) {
    if (!done)
        Messages::Inform(this, QStringLiteral("Operation failed to complete"),
                         QStringLiteral("Rankelo Error"));
    return done;
}

void EntryForm::clickAdd() {
    if (!tellWhenFailed(save(Add, QString())))
        return;
    m_box->clear();
    // Ready for the next one.
    m_box->setFocus();
}

void EntryForm::clickEdit() {
    tellWhenFailed(save(Edit, selectedKey()));
}

void EntryForm::clickDelete() {
    // Without a selected row there is nothing to ask about.
    if (!m_list->IsEmpty())
        tellWhenFailed(m_list->SelectedRow() && save(Delete, selectedKey()));
}

bool EntryForm::save(qint32 action, const QString& key) {
    return Guarded(m_texts.saveProcedure, m_texts.screen, false, [&] {
        switch (action) {
        case Add:
            return add();
        case Edit:
            return rename(key);
        case Delete:
            return remove(key);
        default:
            return true;
        }
    });
}

bool EntryForm::add() {
    const std::optional<Row> row = m_records.add(m_box->text());
    if (row)
        m_list->scrollToItem(m_list->AddRow(row->key, row->texts));
    return row.has_value();
}

bool EntryForm::rename(const QString& key) {
    if (!m_records.rename(key, m_box->text()))
        return false;
    if (QTreeWidgetItem* selected = m_list->SelectedRow())
        selected->setText(nameColumn(), m_box->text());
    return true;
}

bool EntryForm::remove(const QString& key) {
    const auto answer =
        Messages::Ask(this, m_texts.deleteQuestion, QStringLiteral("Melodex Professional"),
                      QMessageBox::Ok, QMessageBox::Cancel);
    if (answer == QMessageBox::Ok && !m_records.remove(key))
        return false;
    // Nothing is selected and nothing stands in the box by itself: the next Enter adds nothing.
    QTreeWidgetItem* row = m_list->SelectedRow();
    const bool held = row && m_box->text() == row->text(nameColumn());
    const QSignalBlocker quiet(m_list);
    delete row;
    m_list->setCurrentItem(nullptr);
    if (held)
        m_box->clear();
    m_box->setFocus();
    return true;
}

// A pasted text may hold line ends and tabs. One line becomes one name; each of several lines that
// is not blank, such as a column of a spreadsheet, is added as a record of its own.
void EntryForm::takeLines(const QString& text) {
    static const QRegularExpression breaks(QStringLiteral("[\\r\\n\\f\\v\\x{2028}\\x{2029}]+"));
    static const QRegularExpression edges(QStringLiteral("^\\t+|\\t+$"));
    static const QRegularExpression tabs(QStringLiteral("\\t+"));
    if (!text.contains(breaks) && !text.contains(u'\t'))
        return;
    QStringList names;
    for (QString line : text.split(breaks)) {
        line.remove(edges).replace(tabs, QStringLiteral(" "));
        if (!line.trimmed().isEmpty())
            names.append(line);
    }
    if (names.size() <= 1) {
        m_box->setText(names.value(0));
        return;
    }
    for (const QString& name : names) {
        m_box->setText(name);
        if (!tellWhenFailed(save(Add, QString())))
            return; // with the name that was refused in the box
    }
    m_box->clear();
}
