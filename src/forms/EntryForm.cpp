#include "forms/EntryForm.h"

#include "app/Messages.h"
#include "app/PictureButton.h"
#include "app/TextBoxFocus.h"
#include "app/Theme.h"

#include <QFrame>
#include <QHBoxLayout>
#include <QLabel>
#include <QLineEdit>

EntryForm::EntryForm(const Texts& texts, QWidget* parent)
    : QDialog(parent)
    , m_deleteQuestion(texts.deleteQuestion)
    , m_list(new RecordList(texts.list, texts.columns))
    , m_box(new QLineEdit)
    , m_buttons(new QHBoxLayout) {
    setObjectName(texts.screen);
    setWindowTitle(texts.caption);

    auto* frame = new QFrame;
    frame->setObjectName(QStringLiteral("fraEntry"));
    auto* label = new QLabel(texts.labelCaption);
    label->setObjectName(texts.label);
    label->setBuddy(m_box);
    m_box->setObjectName(texts.box);
    m_box->setAccessibleName(texts.labelCaption);
    m_box->setMinimumHeight(5 * Theme::Unit);
    TextBoxFocus::Attach(m_box);
    auto* add = new PictureButton(QStringLiteral("cmdAdd"), QStringLiteral("add"), texts.addTip);
    auto* edit =
        new PictureButton(QStringLiteral("cmdEdit"), QStringLiteral("edit"), texts.editTip);
    auto* remove =
        new PictureButton(QStringLiteral("cmdDelete"), QStringLiteral("delete"), texts.deleteTip);

    m_buttons->setSpacing(Theme::Unit);
    for (PictureButton* button : {add, edit, remove})
        m_buttons->addWidget(button);
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
    resize(80 * Theme::Unit, 68 * Theme::Unit);

    // The row of the entry box first, for that is where an evening's typing happens.
    QWidget* const order[] = {m_box, add, edit, remove, m_list};
    for (std::size_t i = 1; i < std::size(order); ++i)
        setTabOrder(order[i - 1], order[i]);
    m_box->setFocus();

    connect(add, &PictureButton::clicked, this, [this] { clickAdd(); });
    connect(edit, &PictureButton::clicked, this, [this] { clickEdit(); });
    connect(remove, &PictureButton::clicked, this, [this] { clickDelete(); });
    connect(m_list, &RecordList::itemClicked, this, [this] { copyNameToBox(); });
    connect(m_list, &RecordList::itemSelectionChanged, this, [this] { copyNameToBox(); });
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
    if (!tellWhenFailed(saveGuarded(Add, QString())))
        return;
    m_box->clear();
    afterAdd();
}

void EntryForm::clickEdit() {
    tellWhenFailed(saveGuarded(Edit, selectedKey()));
}

void EntryForm::clickDelete() {
    // Without a selected row there is nothing to ask about.
    if (!m_list->IsEmpty())
        tellWhenFailed(m_list->SelectedRow() && saveGuarded(Delete, selectedKey()));
}

bool EntryForm::save(qint32 action, const QString& key) {
    QTreeWidgetItem* selected = m_list->SelectedRow();
    const QString name = m_box->text();
    switch (action) {
    case Add: {
        const std::optional<Row> row = addRecord(name);
        if (row)
            m_list->scrollToItem(m_list->AddRow(row->key, row->texts));
        return row.has_value();
    }
    case Edit:
        if (!renameRecord(key, name))
            return false;
        if (selected)
            selected->setText(nameColumn(), name);
        return true;
    case Delete: {
        const auto answer =
            Messages::Ask(this, m_deleteQuestion, QStringLiteral("Melodex Professional"),
                          QMessageBox::Ok, QMessageBox::Cancel);
        if (answer == QMessageBox::Ok && !deleteRecord(key))
            return false;
        delete selected;
        return true;
    }
    default:
        return true;
    }
}
