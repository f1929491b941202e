#include "Evening.h"
#include "app/Theme.h"
#include "app/frmAbout.h"
#include "display/BoardLabel.h"
#include "display/frmOptions.h"
#include "display/frmViewResults.h"
#include "forms/frmEntry.h"
#include "forms/frmMain.h"
#include "forms/frmResultEntry.h"
#include "forms/frmRoundEntry.h"
#include "forms/frmTeamEntry.h"

#include <QAbstractButton>
#include <QAbstractItemView>
#include <QAbstractSpinBox>
#include <QAccessible>
#include <QCheckBox>
#include <QComboBox>
#include <QHeaderView>
#include <QLabel>
#include <QLineEdit>
#include <QMessageBox>
#include <QTest>
#include <QToolButton>
#include <QTreeWidget>

namespace {

// Every screen but the board, filled, and the order in which Tab visits its controls.
struct ScreenCase {
    const char* name;
    std::unique_ptr<QWidget> (*make)();
    const char* tabOrder;
};

template <typename Screen>
std::unique_ptr<QWidget> filled() {
    auto screen = std::make_unique<Screen>();
    if constexpr (requires { screen->FillList(); })
        screen->FillList();
    if constexpr (requires { screen->Fill(QString()); })
        screen->Fill(QStringLiteral("R1"));
    if constexpr (requires { screen->AddRow({}, {}, {}, {}); })
        screen->AddRow(QStringLiteral("1"), QStringLiteral("Ants"), QStringLiteral("14"),
                       QStringLiteral("Played"));
    return screen;
}

std::unique_ptr<QWidget> scoreDialog() {
    auto dialog = std::make_unique<frmEntry>(nullptr);
    dialog->SetEntry(12, true);
    return dialog;
}

std::unique_ptr<QWidget> question() {
    auto box = std::make_unique<QMessageBox>(
        QMessageBox::NoIcon, QStringLiteral("Exit Application"),
        QStringLiteral("Are you sure you wish to exit?"), QMessageBox::Yes | QMessageBox::No);
    box->setObjectName(QStringLiteral("question"));
    return box;
}

const ScreenCase Screens[] = {
    {"frmMain", filled<frmMain>,
     "cboRounds chkShowAllRound cmdRoundSetup cmdTeamSetup cmdResultsEntry cmdDisplayRound "
     "cmdDisplayLeader cmdViewResults cmdViewLeader cmdConfiguration cmdExit"},
    {"frmTeamEntry", filled<frmTeamEntry>, "txtTeamName cmdAdd cmdEdit cmdDelete lvTeams"},
    {"frmRoundEntry", filled<frmRoundEntry>,
     "txtRoundName cmdAdd cmdEdit cmdDelete cmdMove_0 cmdMove_1 lvRounds"},
    {"frmResultEntry", filled<frmResultEntry>, "lvTeams cboRounds"},
    {"frmEntry", scoreDialog, "txtScore chkJoker cmdOK cmdCancel"},
    {"frmOptions", filled<frmOptions>,
     "cboDisplayFont cboDisplaySize cmdBackColourA cmdForeColourA cmdBackColourB "
     "cmdForeColourB cmdBackground txtLMargin txtRMargin txtFooter txtCellPadX txtCellPadY "
     "txtCellWidth chkDebugMode cmdSave cmdClose cmdAbout cmdReset"},
    {"frmViewResults", filled<frmViewResults>, "lvResults cboPrinter cmdPrint"},
    {"frmAbout", filled<frmAbout>, "cmdClose"},
    {"question", question, nullptr},
};

// The controls that a screen shows, without what Qt puts inside them.
QList<QWidget*> controlsOf(const QWidget& screen) {
    QList<QWidget*> controls;
    for (QWidget* control : screen.findChildren<QWidget*>())
        if (control->isVisible() && !control->objectName().startsWith(QStringLiteral("qt_")) &&
            !control->objectName().isEmpty())
            controls.append(control);
    return controls;
}

QString describe(const QWidget& screen, const QWidget& control, const QString& what) {
    return QStringLiteral("%1.%2 (%3): %4")
        .arg(screen.objectName(), control.objectName(),
             QLatin1StringView(control.metaObject()->className()), what);
}

// What a control needs for its text, and what it has; empty sizes for a control without text.
std::pair<QSize, QSize> roomFor(const QWidget& control) {
    if (const auto* box = qobject_cast<const QLineEdit*>(&control)) {
        const QSize needed(box->isReadOnly() ? box->fontMetrics().horizontalAdvance(box->text())
                                             : 0,
                           box->fontMetrics().height());
        return {needed, box->contentsRect().size()};
    }
    const auto* label = qobject_cast<const QLabel*>(&control);
    if (label && label->wordWrap())
        return {QSize(0, label->heightForWidth(label->width())), label->size()};
    if ((label && !label->text().isEmpty()) || qobject_cast<const QAbstractButton*>(&control) ||
        qobject_cast<const QComboBox*>(&control) || qobject_cast<const QAbstractSpinBox*>(&control))
        return {control.sizeHint(), control.size()};
    return {};
}

void checkRoom(const QWidget& screen, QStringList& faults) {
    for (const QWidget* control : controlsOf(screen)) {
        const auto [needed, given] = roomFor(*control);
        if (needed.width() > given.width() || needed.height() > given.height())
            faults.append(describe(screen, *control,
                                   QStringLiteral("%1x%2 in %3x%4")
                                       .arg(needed.width())
                                       .arg(needed.height())
                                       .arg(given.width())
                                       .arg(given.height())));
        if (!screen.rect().contains(QRect(control->mapTo(&screen, QPoint()), control->size())))
            faults.append(describe(screen, *control, QStringLiteral("reaches out of the screen")));
        const auto* list = qobject_cast<const QTreeWidget*>(control);
        for (int column = 0; list && column < list->columnCount(); ++column)
            if (!list->isColumnHidden(column) &&
                list->header()->sectionSizeHint(column) > list->header()->sectionSize(column))
                faults.append(
                    describe(screen, *list, QStringLiteral("column %1 is cut").arg(column)));
    }
}

using Pair = std::pair<QPalette::ColorRole, QPalette::ColorRole>;

// The pairs of text and background that a control draws with.
QList<Pair> colorsOf(const QWidget& control) {
    QList<Pair> pairs{{QPalette::ToolTipText, QPalette::ToolTipBase}};
    const auto add = [&](std::initializer_list<Pair> more) { pairs.append(QList<Pair>(more)); };
    const Pair onBase(QPalette::Text, QPalette::Base);
    const Pair selected(QPalette::HighlightedText, QPalette::Highlight);
    const Pair onButton(QPalette::ButtonText, QPalette::Button);
    if (qobject_cast<const QLineEdit*>(&control))
        add({onBase, selected});
    else if (qobject_cast<const QAbstractItemView*>(&control))
        add({onBase, selected, onButton, {QPalette::Text, QPalette::AlternateBase}});
    else if (qobject_cast<const QComboBox*>(&control))
        add({onBase, selected, onButton});
    else if (qobject_cast<const QCheckBox*>(&control))
        add({{QPalette::WindowText, QPalette::Window}});
    else if (qobject_cast<const QAbstractButton*>(&control))
        add({onButton, {QPalette::PlaceholderText, QPalette::Button}});
    else
        add({{QPalette::WindowText, QPalette::Window}});
    return pairs;
}

void checkContrast(const QWidget& screen, QStringList& faults) {
    for (const QWidget* control : controlsOf(screen)) {
        // A patch of colour on the options screen holds no text.
        const auto* label = qobject_cast<const QLabel*>(control);
        if (label && label->text().isEmpty())
            continue;
        for (const auto& [text, back] : colorsOf(*control))
            for (const QPalette::ColorGroup group :
                 {QPalette::Active, QPalette::Inactive, QPalette::Disabled}) {
                const QColor fore = control->palette().color(group, text);
                const QColor behind = control->palette().color(group, back);
                if (ContrastRatio(fore, behind) < 4.5)
                    faults.append(describe(screen, *control, fore.name() + u' ' + behind.name()));
            }
    }
}

bool isPictureButton(const QWidget& control) {
    const auto* button = qobject_cast<const QAbstractButton*>(&control);
    return button && !button->icon().isNull();
}

void checkAccess(const QWidget& screen, QStringList& faults) {
    for (QWidget* control : controlsOf(screen)) {
        QAccessibleInterface* access = QAccessible::queryAccessibleInterface(control);
        const bool isOperated = control->focusPolicy() & Qt::TabFocus;
        if (!access || access->role() == QAccessible::NoRole)
            faults.append(describe(screen, *control, QStringLiteral("has no role")));
        else if (access->text(QAccessible::Name).isEmpty() &&
                 (isOperated || qobject_cast<QAbstractButton*>(control) ||
                  qobject_cast<QLineEdit*>(control)))
            faults.append(describe(screen, *control, QStringLiteral("has no name")));
        if (qobject_cast<QAbstractButton*>(control) && !isOperated)
            faults.append(describe(screen, *control, QStringLiteral("wants a mouse")));
        const auto* tool = qobject_cast<QToolButton*>(control);
        if (tool && !isPictureButton(*control))
            faults.append(describe(screen, *control, QStringLiteral("has no icon")));
        if (isPictureButton(*control)) {
            const auto& button = *qobject_cast<QAbstractButton*>(control);
            if (button.toolTip().isEmpty() || button.accessibleName().isEmpty())
                faults.append(
                    describe(screen, button, QStringLiteral("does not tell its purpose")));
            if (button.icon().pixmap(button.iconSize(), screen.devicePixelRatio()).isNull())
                faults.append(describe(screen, button, QStringLiteral("has an empty icon")));
        }
    }
}

// The controls that Tab visits, from the one that has the focus at first.
QStringList tabOrderOf() {
    QStringList names;
    for (int presses = 0; presses < 100; ++presses) {
        const QWidget* focused = QApplication::focusWidget();
        if (!focused || names.contains(focused->objectName()))
            break;
        names.append(focused->objectName());
        Press(Qt::Key_Tab);
    }
    return names;
}

} // namespace

class LookTest : public QObject {
    Q_OBJECT

private slots:
    void everyScreen_data() {
        QTest::addColumn<int>("screen");
        QTest::addColumn<bool>("isDark");
        for (const bool isDark : {false, true})
            for (int i = 0; i < int(std::size(Screens)); ++i)
                QTest::addRow("%s, %s", Screens[i].name, isDark ? "dark" : "light") << i << isDark;
    }

    // Room for every text, contrast, a name and a role for every control, and a way by keyboard.
    void everyScreen() {
        QFETCH(int, screen);
        QFETCH(bool, isDark);
        const Evening evening;
        WriteFile(evening.Path(QStringLiteral("JOKER.BMP")), "");
        QApplication::setPalette(QPalette(isDark ? Qt::black : Qt::white));
        Theme::Apply(*qApp);
        QCOMPARE(Theme::IsDark(), isDark);

        const ScreenCase& each = Screens[screen];
        const std::unique_ptr<QWidget> shown = each.make();
        QCOMPARE(shown->objectName(), QString(each.name));
        ShowScreen(*shown);
        QStringList faults;
        checkRoom(*shown, faults);
        checkContrast(*shown, faults);
        if (each.tabOrder) {
            checkAccess(*shown, faults);
            const QStringList order = tabOrderOf();
            QCOMPARE(order.join(u' '), QString(each.tabOrder));
            for (const QWidget* control : controlsOf(*shown))
                if ((control->focusPolicy() & Qt::TabFocus) && control->isEnabled() &&
                    !order.contains(control->objectName()))
                    faults.append(describe(*shown, *control, QStringLiteral("Tab passes it by")));
        }
        // As small as somebody can make it.
        shown->resize(1, 1);
        QCoreApplication::processEvents();
        checkRoom(*shown, faults);
        QVERIFY2(faults.isEmpty(), qPrintable(u'\n' + faults.join(u'\n')));
    }
};

QTEST_MAIN(LookTest)
#include "LookTest.moc"
