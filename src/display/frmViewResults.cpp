#include "display/frmViewResults.h"

#include "app/PictureButton.h"
#include "app/RecordList.h"
#include "app/Theme.h"
#include "app/WindowTitle.h"
#include "app/modCommon.h"
#include "core/Guard.h"
#include "core/RuntimeError.h"
#include "display/DefaultPrinter.h"
#include "display/ResultsPage.h"

#include <QComboBox>
#include <QCoreApplication>
#include <QGridLayout>
#include <QHeaderView>
#include <QLabel>

namespace {

constexpr const char* Component = "frmViewResults";
constexpr int TeamNameColumn = 1;
constexpr int ScoreColumn = 2;
constexpr int JokerColumn = 3;

// What the operator does meanwhile waits its turn.
void letEventsRun() {
    QCoreApplication::processEvents(QEventLoop::ExcludeUserInputEvents);
}

} // namespace

frmViewResults::frmViewResults(QWidget* parent)
    : QDialog(parent)
    , lvResults(new RecordList(QStringLiteral("lvResults"),
                               {QStringLiteral("Position"), QStringLiteral("Team Name"),
                                QStringLiteral("Score"), QStringLiteral("Joker")}))
    , cboPrinter(new QComboBox)
    , cmdPrint(new PictureButton(QStringLiteral("cmdPrint"), QStringLiteral("print"),
                                 QStringLiteral("Print Results"))) {
    setObjectName(QStringLiteral("frmViewResults"));
    SetCaption(QStringLiteral("View Results"));
    lvResults->header()->setStretchLastSection(false);
    lvResults->header()->setSectionResizeMode(TeamNameColumn, QHeaderView::Stretch);
    lvResults->headerItem()->setTextAlignment(ScoreColumn, Qt::AlignRight | Qt::AlignVCenter);
    lvResults->headerItem()->setTextAlignment(JokerColumn, Qt::AlignCenter);
    lvResults->setColumnWidth(JokerColumn, 12 * Theme::Unit);

    auto* label = new QLabel(QStringLiteral("Print Results To:"));
    label->setObjectName(QStringLiteral("lblPrintResults"));
    label->setBuddy(cboPrinter);
    cboPrinter->setObjectName(QStringLiteral("cboPrinter"));
    connect(cmdPrint, &PictureButton::clicked, this,
            [this] { Guarded("cmdPrint_Click", Component, [this] { print(); }); });

    auto* layout = new QGridLayout(this);
    constexpr int margin = 2 * Theme::Unit;
    layout->setContentsMargins(margin, margin, margin, margin);
    layout->setSpacing(margin);
    layout->addWidget(lvResults, 0, 0, 1, 3);
    layout->addWidget(label, 1, 0);
    layout->addWidget(cboPrinter, 1, 1);
    layout->addWidget(cmdPrint, 1, 2);
    layout->setColumnStretch(1, 1);
    resize(90 * Theme::Unit, 70 * Theme::Unit);

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
    row->setSizeHint(0, QSize(0, fontMetrics().height() + Theme::Unit));
}

void frmViewResults::listPrinters() {
    const DefaultPrinter::Printers printers = DefaultPrinter::List();
    cboPrinter->addItems(printers.Names);
    modCommon::SelectListItem(*cboPrinter, printers.DefaultName);
}

void frmViewResults::print() {
    cmdPrint->setEnabled(false);
    letEventsRun();
    if (cboPrinter->currentIndex() < 0)
        throw RuntimeError(ErrorNumber::DeviceFault, QStringLiteral("There is no printer"));
    const QString printer = DefaultPrinter::Choose(cboPrinter->currentText());
    letEventsRun();
    QList<QStringList> rows;
    for (int i = 0; i < lvResults->topLevelItemCount(); ++i) {
        const QTreeWidgetItem* item = lvResults->topLevelItem(i);
        rows.append({item->text(0), item->text(TeamNameColumn), item->text(ScoreColumn)});
    }
    ResultsPage::Print(printer, m_caption, rows);
}
