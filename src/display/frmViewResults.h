#pragma once

#include <QDialog>

class QComboBox;
class RecordList;
class PictureButton;

/// The standings in a table, beside the projector, from where they are printed: once for each
/// opening, so that a second press does not cost a second sheet.
class frmViewResults : public QDialog {
    Q_OBJECT

public:
    explicit frmViewResults(QWidget* parent = nullptr);

    /// The title of the window and of the printed page.
    void SetCaption(const QString& caption);
    /// Appends a row as it shall stand in the table.
    void AddRow(const QString& position, const QString& teamName, const QString& score,
                const QString& joker);

private:
    void listPrinters();
    void print();

    QString m_caption;
    RecordList* lvResults;
    QComboBox* cboPrinter;
    PictureButton* cmdPrint;
};
