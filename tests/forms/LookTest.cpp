#include "Quiz.h"
#include "app/Theme.h"
#include "app/frmAbout.h"
#include "display/BoardLabel.h"
#include "display/frmOptions.h"
#include "display/frmViewResults.h"
#include "forms/frmEntry.h"
#include "forms/frmMain.h"

#include <QAbstractButton>
#include <QAccessible>
#include <QComboBox>
#include <QHeaderView>
#include <QLabel>
#include <QTest>

namespace {

Screen resultsWindow() {
    auto screen = std::make_unique<frmViewResults>();
    screen->AddRow("1", "Ants", "14", "Played");
    Control<QComboBox>(*screen, "cboPrinter").addItem("Hall");
    Control<QComboBox>(*screen, "cboPrinter").setCurrentIndex(0);
    return screen;
}

// Every screen but the board, filled, and the order in which Tab visits its controls.
const struct {
    Screen (*Make)();
    const char* TabOrder;
} Screens[] = {
    {Make<frmMain>,
     "cboRounds chkShowAllRound cmdRoundSetup cmdTeamSetup cmdResultsEntry cmdDisplayRound "
     "cmdDisplayLeader cmdViewResults cmdViewLeader cmdConfiguration cmdExit"},
    {Make<frmTeamEntry>, "txtTeamName cmdAdd cmdEdit cmdDelete lvTeams"},
    {Make<frmRoundEntry>, "txtRoundName cmdAdd cmdEdit cmdDelete cmdMove_0 cmdMove_1 lvRounds"},
    {ResultScreen, "lvTeams cboRounds"},
    {[] { return Screen(new frmEntry(nullptr, "Ants", 12, true)); },
     "txtScore chkJoker cmdOK cmdCancel"},
    {[] { return Screen(new frmOptions(nullptr, nullptr)); },
     "cboDisplayFont cboDisplaySize cmdBackColourA cmdForeColourA cmdBackColourB cmdForeColourB "
     "cmdBackground txtLMargin txtRMargin txtFooter txtCellPadX txtCellPadY txtCellWidth "
     "cmdReset chkDebugMode cmdSave cmdClose cmdAbout"},
    {resultsWindow, "lvResults cboPrinter cmdPrint"},
    {Make<frmAbout>, "cmdClose"},
};

// The smallest size in which a control shows its whole text.
QSize neededBy(const QWidget& control) {
    const auto* label = qobject_cast<const QLabel*>(&control);
    const auto* box = qobject_cast<const QLineEdit*>(&control);
    if (label && label->wordWrap())
        return {0, label->heightForWidth(label->width())};
    if (box && !box->isReadOnly()) // It scrolls.
        return {0, box->fontMetrics().height()};
    if (box)
        return box->fontMetrics().size(0, box->text());
    if ((label && !label->text().isEmpty()) || qobject_cast<const QAbstractButton*>(&control) ||
        qobject_cast<const QComboBox*>(&control))
        return control.sizeHint();
    return {0, 0};
}

bool hasRoom(const QWidget& screen, const QWidget& control) {
    const QSize needed = neededBy(control);
    const QSize given = control.contentsRect().size();
    bool fits = needed.width() <= given.width() && needed.height() <= given.height() &&
                screen.rect().contains({control.mapTo(&screen, QPoint()), control.size()});
    if (const auto* list = qobject_cast<const QTreeWidget*>(&control))
        for (int column = 0; column < list->columnCount(); ++column)
            fits = fits &&
                   (list->isColumnHidden(column) ||
                    list->header()->sectionSizeHint(column) <= list->header()->sectionSize(column));
    return fits;
}

bool isReadable(const QWidget& control) {
    using P = QPalette;
    QList<std::pair<P::ColorRole, P::ColorRole>> pairs{{P::Text, P::Base},
                                                       {P::HighlightedText, P::Highlight},
                                                       {P::WindowText, P::Window},
                                                       {P::ButtonText, P::Button},
                                                       {P::PlaceholderText, P::Button},
                                                       {P::ToolTipText, P::ToolTipBase}};
    if (qobject_cast<const QTreeWidget*>(&control))
        pairs.append({P::Text, P::AlternateBase});
    for (const auto& [text, back] : pairs)
        for (const P::ColorGroup group : {P::Active, P::Inactive, P::Disabled})
            if (ContrastRatio(control.palette().color(group, text),
                              control.palette().color(group, back)) < 4.5)
                return false;
    return true;
}

bool tellsItsPurpose(QWidget& control) {
    QAccessibleInterface* access = QAccessible::queryAccessibleInterface(&control);
    const auto* button = qobject_cast<const QAbstractButton*>(&control);
    if (!access || access->role() == QAccessible::NoRole)
        return false;
    if (button && !button->icon().isNull() &&
        (button->toolTip().isEmpty() || button->accessibleName().isEmpty() ||
         button->icon().pixmap(button->iconSize(), control.devicePixelRatio()).isNull()))
        return false;
    const bool isOperated =
        (control.focusPolicy() & Qt::TabFocus) || qobject_cast<QLineEdit*>(&control);
    return !isOperated || !access->text(QAccessible::Name).isEmpty();
}

// The controls that Tab visits, from the one that has the focus at first.
QStringList tabOrder() {
    QStringList names;
    while (!names.contains(QApplication::focusWidget()->objectName())) {
        names.append(QApplication::focusWidget()->objectName());
        Press(Qt::Key_Tab);
    }
    return names;
}

} // namespace

class LookTest : public QObject {
    Q_OBJECT

private slots:
    // Room for every text, contrast, a name and a role for every control, and a way by keyboard.
    void everyScreen() {
        const Quiz quiz;
        WriteFile(quiz.Path("JOKER.BMP"), "");
        QStringList faults;
        for (const bool isDark : {false, true}) {
            QApplication::setPalette(QPalette(isDark ? Qt::black : Qt::white));
            Theme::Apply(*qApp);
            QCOMPARE(Theme::IsDark(), isDark);
            for (const auto& [make, order] : Screens) {
                const std::unique_ptr<QWidget> screen = make();
                ShowScreen(*screen);
                const QStringList visited = tabOrder();
                QCOMPARE(visited.join(u' '), order);
                for (const bool isSmallest : {false, true}) {
                    if (isSmallest)
                        screen->resize(1, 1);
                    QCoreApplication::processEvents();
                    for (QWidget* control : screen->findChildren<QWidget*>())
                        check(*screen, *control, visited, faults);
                }
            }
        }
        QVERIFY2(faults.isEmpty(), qPrintable(u'\n' + faults.join(u'\n')));
    }

private:
    static void check(const QWidget& screen, QWidget& control, const QStringList& visited,
                      QStringList& faults) {
        const QString name = control.objectName();
        const auto expect = [&](bool holds, const char* what) {
            if (!holds)
                faults.append(screen.objectName() + u'.' + name + ": " + what);
        };
        // Not what Qt puts inside a control.
        if (!control.isVisible() || name.isEmpty() || name.startsWith("qt_"))
            return;
        expect(hasRoom(screen, control), "is cut");
        expect(tellsItsPurpose(control), "does not tell its purpose");
        const bool isButton = qobject_cast<QAbstractButton*>(&control);
        const bool isByKey = control.focusPolicy() & Qt::TabFocus;
        expect(!isButton || isByKey, "wants a mouse");
        expect(!isByKey || !control.isEnabled() || visited.contains(name), "is passed by Tab");
        // A patch of colour on the options screen holds no text.
        const auto* label = qobject_cast<QLabel*>(&control);
        expect((label && label->text().isEmpty()) || isReadable(control), "is hard to read");
    }
};

QTEST_MAIN(LookTest)
#include "LookTest.moc"
