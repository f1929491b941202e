#pragma once

#include <QDialog>

#include <optional>

class QHBoxLayout;
class QLineEdit;
class RecordList;

/// What the team and the round entry screen share: a list of records, a box for a name, and the
/// buttons that add, rename and delete. Every change is stored at once; Esc closes.
class EntryForm : public QDialog {
    Q_OBJECT

public:
    /// A record as its row shows it.
    struct Row {
        QString key;
        QStringList texts;
    };
    /// The operations on the stored records. False or nothing when one failed.
    struct Records {
        std::optional<QList<Row>> (*list)();
        std::optional<Row> (*add)(const QString& name);
        bool (*rename)(const QString& key, const QString& name);
        bool (*remove)(const QString& key);
    };
    /// Everything else in which the two screens differ.
    struct Texts {
        const char *screen, *saveProcedure; ///< the names under which a failed save is reported
        QString caption;
        QString list;
        QStringList columns; ///< the last one holds the name
        QString label, labelCaption, box;
        QString addTip, editTip, deleteTip;
        QString deleteQuestion;
        QString emptyText; ///< what an empty list says
        bool enterAdds;    ///< Enter adds what is typed, unless it is blank
    };

    /// Fills the list from the database. False when the records cannot be read; the list then
    /// stays as it is.
    bool FillList();

protected:
    enum Action : qint32 { Add = 0, Edit = 1, Delete = 2 };

    EntryForm(Texts texts, const Records& records, QWidget* parent);

    /// Adds, renames or deletes, then brings the list up to date. A deletion that the operator
    /// cancels takes the row from the list all the same; the database keeps the record, and it is
    /// there again when the screen is opened anew. False when the data operation failed.
    bool save(qint32 action, const QString& key);

    RecordList& list() const { return *m_list; }
    QHBoxLayout& buttons() const { return *m_buttons; }

private:
    void build();
    bool onKey(int key);
    void clickAdd();
    void clickEdit();
    void clickDelete();
    bool add();
    bool rename(const QString& key);
    bool remove(const QString& key);
    void copyNameToBox();
    void takeLines(const QString& text);
    QString selectedKey() const;
    bool tellWhenFailed(bool done);
    int nameColumn() const;

    const Texts m_texts;
    const Records m_records;
    RecordList* m_list;
    QLineEdit* m_box;
    QHBoxLayout* m_buttons;
};
