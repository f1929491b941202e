#pragma once

#include <QDialog>

class QComboBox;
class QLabel;
class RecordList;
class PictureButton;

/// The standings in a table, beside the projector, from where they are copied (Ctrl+C) and printed:
/// once for each opening, so that a second press does not cost a second sheet.
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
    /// Whether a print can begin; the button's tool-tip says why not.
    void offerPrinting();
    void clickPrint();
    /// Gives the printer that the page went to.
    QString print();
    /// The selected row, or without one all rows and their heads, as text with tabs.
    void copyRows() const;

    QString m_caption;
    RecordList* lvResults;
    QComboBox* cboPrinter;
    PictureButton* cmdPrint;
    QLabel* lblPrinted;
};
