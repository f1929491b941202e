#include "display/frmViewResults.h"

#include "app/Chooser.h"
#include "app/PictureButton.h"
#include "app/RecordList.h"
#include "app/Theme.h"
#include "app/WindowTitle.h"
#include "app/modCommon.h"
#include "core/Guard.h"
#include "display/DefaultPrinter.h"
#include "display/ResultsPage.h"

#include <QClipboard>
#include <QComboBox>
#include <QCoreApplication>
#include <QGridLayout>
#include <QGuiApplication>
#include <QHeaderView>
#include <QLabel>
#include <QRegularExpression>
#include <QShortcut>

namespace {

constexpr const char* Component = "frmViewResults";
constexpr int TeamNameColumn = 1;
constexpr int ScoreColumn = 2;
constexpr int JokerColumn = 3;

// What the operator does meanwhile waits its turn.
void letEventsRun() {
    QCoreApplication::processEvents(QEventLoop::ExcludeUserInputEvents);
}

QStringList textsOf(const QTreeWidgetItem& row) {
    QStringList texts;
    for (int column = 0; column < row.columnCount(); ++column)
        texts.append(row.text(column));
    return texts;
}

} // namespace

frmViewResults::frmViewResults(QWidget* parent)
    : QDialog(parent)
    , lvResults(new RecordList(QStringLiteral("lvResults"),
                               {QStringLiteral("Position"), QStringLiteral("Team Name"),
                                QStringLiteral("Score"), QStringLiteral("Joker")}))
    , cboPrinter(new Chooser)
    , cmdPrint(new PictureButton(QStringLiteral("cmdPrint"), QStringLiteral("print"),
                                 QStringLiteral("Print Results")))
    , lblPrinted(new QLabel) {
    setObjectName(QStringLiteral("frmViewResults"));
    SetCaption(QStringLiteral("View Results"));
    lvResults->SetEmptyText(QStringLiteral("No results yet: enter them in Result Entry (F6)"));
    lvResults->header()->setStretchLastSection(false);
    lvResults->header()->setSectionResizeMode(TeamNameColumn, QHeaderView::Stretch);
    lvResults->headerItem()->setTextAlignment(ScoreColumn, Qt::AlignRight | Qt::AlignVCenter);
    lvResults->headerItem()->setTextAlignment(JokerColumn, Qt::AlignCenter);

    auto* label = new QLabel(QStringLiteral("Print Results To:"));
    label->setObjectName(QStringLiteral("lblPrintResults"));
    label->setBuddy(cboPrinter);
    cboPrinter->setObjectName(QStringLiteral("cboPrinter"));
    lblPrinted->setObjectName(QStringLiteral("lblPrinted"));
    lblPrinted->setTextFormat(Qt::PlainText);
    lblPrinted->hide();
    connect(cmdPrint, &PictureButton::clicked, this, &frmViewResults::clickPrint);
    connect(cboPrinter, &QComboBox::currentIndexChanged, this, &frmViewResults::offerPrinting);
    const auto* copy = new QShortcut(QKeySequence::Copy, this);
    connect(copy, &QShortcut::activated, this, &frmViewResults::copyRows);

    auto* layout = new QGridLayout(this);
    constexpr int margin = 2 * Theme::Unit;
    layout->setContentsMargins(margin, margin, margin, margin);
    layout->setSpacing(margin);
    layout->addWidget(lvResults, 0, 0, 1, 3);
    layout->addWidget(label, 1, 0);
    layout->addWidget(cboPrinter, 1, 1);
    layout->addWidget(cmdPrint, 1, 2);
    layout->addWidget(lblPrinted, 2, 1, 1, 2);
    layout->setColumnStretch(1, 1);
    Theme::Resize(*this, 90, 70);

    Guarded("Form_Load", Component, [this] { listPrinters(); });
}

void frmViewResults::SetCaption(const QString& caption) {
    m_caption = caption;
    SetWindowTitle(*this, caption);
}

void frmViewResults::AddRow(const QString& position, const QString& teamName, const QString& score,
                            const QString& joker) {
    QTreeWidgetItem* row = lvResults->AddRow(QString(), {position, teamName, score, joker});
    row->setTextAlignment(ScoreColumn, Qt::AlignRight | Qt::AlignVCenter);
    row->setTextAlignment(JokerColumn, Qt::AlignCenter);
}

void frmViewResults::listPrinters() {
    offerPrinting();
    const DefaultPrinter::Printers printers = DefaultPrinter::List();
    cboPrinter->addItems(printers.Names);
    // The list would choose its first one.
    cboPrinter->setCurrentIndex(-1);
    modCommon::SelectListItem(*cboPrinter, printers.DefaultName);
}

void frmViewResults::offerPrinting() {
    const bool isChosen = cboPrinter->currentIndex() >= 0;
    cmdPrint->setEnabled(isChosen && lblPrinted->isHidden());
    cmdPrint->setToolTip(isChosen                  ? QStringLiteral("Print Results")
                         : cboPrinter->count() > 0 ? QStringLiteral("Choose a printer first")
                                                   : QStringLiteral("There is no printer"));
}

void frmViewResults::clickPrint() {
    cmdPrint->setEnabled(false);
    letEventsRun();
    const QString printer =
        Guarded("cmdPrint_Click", Component, QString(), [this] { return print(); });
    lblPrinted->setText(printer.isEmpty() ? QStringLiteral("Not printed")
                                          : QStringLiteral("Sent to ") + printer);
    lblPrinted->show();
    cmdPrint->setToolTip(lblPrinted->text());
}

QString frmViewResults::print() {
    const QString printer = DefaultPrinter::Choose(cboPrinter->currentText());
    letEventsRun();
    QList<QStringList> rows;
    for (int i = 0; i < lvResults->topLevelItemCount(); ++i)
        rows.append(textsOf(*lvResults->topLevelItem(i)));
    ResultsPage::Print(printer, m_caption, rows);
    return printer;
}

void frmViewResults::copyRows() const {
    QList<QStringList> rows;
    if (const QTreeWidgetItem* selected = lvResults->SelectedRow()) {
        rows.append(textsOf(*selected));
    } else {
        rows.append(textsOf(*lvResults->headerItem()));
        for (int i = 0; i < lvResults->topLevelItemCount(); ++i)
            rows.append(textsOf(*lvResults->topLevelItem(i)));
    }
    QString text;
    for (QStringList& row : rows) {
        for (QString& cell : row) // A tab or a line end in a name would begin another cell.
            cell.replace(QRegularExpression(QStringLiteral("\\s")), QStringLiteral(" "));
        text += row.join(u'\t') + u'\n';
    }
    QGuiApplication::clipboard()->setText(text);
}
