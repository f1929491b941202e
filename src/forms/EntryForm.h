#pragma once

#include "app/RecordList.h"

#include <QDialog>

#include <optional>

class QHBoxLayout;
class QLineEdit;

/// What the team and the round entry screen share: a list of records, a box for a name, and the
/// buttons that add, rename and delete. Every change is stored at once.
class EntryForm : public QDialog {
    Q_OBJECT

protected:
    enum Action : qint32 { Add = 0, Edit = 1, Delete = 2 };

    /// Names, captions and questions in which the two screens differ.
    struct Texts {
        QString screen, caption;
        QString list;
        QStringList columns; ///< the last one holds the name
        QString label, labelCaption, box;
        QString addTip, editTip, deleteTip;
        QString deleteQuestion;
    };
    /// A record as its row shows it.
    struct Row {
        QString key;
        QStringList texts;
    };

    EntryForm(const Texts& texts, QWidget* parent);

    /// Adds, renames or deletes, then brings the list up to date. A deletion that the operator
    /// cancels takes the row from the list all the same; the database keeps the record, and it is
    /// there again when the screen is opened anew. False when the data operation failed.
    bool save(qint32 action, const QString& key);
    /// `save` under the screen's own name.
    virtual bool saveGuarded(qint32 action, const QString& key) = 0;

    virtual std::optional<Row> addRecord(const QString& name) = 0;
    virtual bool renameRecord(const QString& key, const QString& name) = 0;
    virtual bool deleteRecord(const QString& key) = 0;

    /// What the add button does: stores the name in the box, then clears the box.
    void clickAdd();
    /// What a screen does behind that.
    virtual void afterAdd() {}

    RecordList& list() const { return *m_list; }
    QLineEdit& box() const { return *m_box; }
    QHBoxLayout& buttons() const { return *m_buttons; }

private:
    void clickEdit();
    void clickDelete();
    void copyNameToBox();
    QString selectedKey() const;
    bool tellWhenFailed(bool done);
    int nameColumn() const { return m_list->columnCount() - 1; }

    QString m_deleteQuestion;
    RecordList* m_list;
    QLineEdit* m_box;
    QHBoxLayout* m_buttons;
};
