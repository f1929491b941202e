#include "Quiz.h"
#include "app/Theme.h"
#include "app/frmAbout.h"
#include "display/BoardLabel.h"
#include "display/frmOptions.h"
#include "display/frmViewResults.h"
#include "forms/frmEntry.h"
#include "forms/frmMain.h"

#include <QCheckBox>
#include <QComboBox>
#include <QHeaderView>
#include <QLabel>
#include <QPushButton>
#include <QTest>

#include <cmath>

namespace {

Screen resultsWindow() {
    auto screen = std::make_unique<frmViewResults>();
    screen->AddRow("1", "Ants", "14", "Played");
    Control<QComboBox>(*screen, "cboPrinter").addItem("Hall");
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
    {[] {
         return Screen(
             new frmEntry(nullptr, {.Team = "Ants", .Round = "Music", .JokerRounds = {"Films"}}));
     },
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
    if (box) // An empty one waits for a name.
        return box->fontMetrics().size(0, box->text().isEmpty() ? "Last Orders" : box->text());
    return control.minimumSizeHint();
}

bool hasRoom(const QWidget& screen, const QWidget& control) {
    const QSize needed = neededBy(control);
    bool fits = needed.width() <= control.width() && needed.height() <= control.height() &&
                screen.rect().contains({control.mapTo(&screen, QPoint()), control.size()});
    const auto* list = qobject_cast<const QTreeWidget*>(&control);
    for (int column = 0; list && column < list->columnCount(); ++column)
        fits = fits && (list->isColumnHidden(column) || list->header()->sectionSizeHint(column) <=
                                                            list->header()->sectionSize(column));
    for (int row = 0; list && row < list->topLevelItemCount(); ++row) {
        const int height = list->visualItemRect(list->topLevelItem(row)).height();
        fits = fits && height == list->header()->height() && height > list->fontMetrics().height();
    }
    return fits;
}

bool isReadable(const QWidget& control) {
    using P = QPalette;
    constexpr P::ColorRole pairs[][2]{
        {P::Text, P::Base},         {P::HighlightedText, P::Highlight},
        {P::WindowText, P::Window}, {P::WindowText, P::AlternateBase},
        {P::ButtonText, P::Button}, {P::PlaceholderText, P::Button},
        {P::Link, P::Window},       {P::ToolTipText, P::ToolTipBase}};
    const P palette = control.palette();
    for (const auto& [text, back] : pairs)
        for (const P::ColorGroup group : {P::Active, P::Inactive, P::Disabled})
            if (ContrastRatio(palette.color(group, text), palette.color(group, back)) < 4.5)
                return false;
    return true;
}

// What is painted in a place of a control and around it.
QImage paintedAt(const QWidget& control, int x, int y, int width, int height) {
    const QPoint corner = control.mapTo(control.window(), QPoint(x, y));
    return control.window()->grab({corner, QSize(width, height)}).toImage();
}

// The pixels half-way down a control's left side, from outside to inside.
QImage edgeOf(const QWidget& control) {
    return paintedAt(control, -2, control.height() / 2, 6, 1);
}

bool canBeTold(const QImage& a, const QImage& b) {
    for (int y = 0; y < a.height(); ++y)
        for (int x = 0; x < a.width(); ++x)
            if (ContrastRatio(a.pixelColor(x, y), b.pixelColor(x, y)) >= 3)
                return true;
    return false;
}

bool hasBorder(const QWidget& control) {
    const QImage edge = edgeOf(control);
    return canBeTold(edge, edge.copy(0, 0, 1, 1).scaled(edge.size()));
}

// The tick of a box that is large enough to be hit reaches so far to the right.
bool showsItsTick(QCheckBox& box) {
    const auto end = [&] { return paintedAt(box, 14, 0, 6, box.height()); };
    const QImage before = end();
    box.toggle();
    const QImage after = end();
    box.toggle();
    return canBeTold(before, after);
}

bool showsItsPurpose(const QWidget& control) {
    const auto* button = qobject_cast<const QAbstractButton*>(&control);
    if (!button || qobject_cast<const QPushButton*>(button) ||
        qobject_cast<const QCheckBox*>(button))
        return true;
    const double ratio = control.devicePixelRatioF();
    const QPixmap picture = button->icon().pixmap(button->iconSize(), ratio);
    return picture.size() == button->iconSize() * ratio && !button->toolTip().isEmpty();
}

// A picture from the one file that suits the screen: not enlarged, and no larger than need be.
QIcon exact(const char* set, const char* name, QIcon::Mode mode = QIcon::Normal) {
    QIcon icon;
    icon.addFile(QStringLiteral(":/icons/%1/%2x/%3.png")
                     .arg(set)
                     .arg(std::ceil(qApp->devicePixelRatio()))
                     .arg(name),
                 QSize(), mode);
    return icon;
}

// Whether a control paints what it would paint with that picture, and not with none.
template <typename Setter>
bool paints(QWidget& control, const QIcon& picture, Setter&& set) {
    const QImage painted = control.grab().toImage();
    set(QIcon());
    const QImage without = control.grab().toImage();
    set(picture);
    return control.grab().toImage() == painted && painted != without;
}

// The controls that Tab visits, from the one that has the focus at first. Those that look the same
// without it are faults.
QStringList tabOrder(QStringList& faults) {
    QStringList names;
    while (!names.contains(QApplication::focusWidget()->objectName())) {
        QWidget& control = *QApplication::focusWidget();
        const QImage focused = edgeOf(control);
        control.clearFocus();
        names.append(control.objectName());
        if (!canBeTold(focused, edgeOf(control)))
            faults.append(names.last() + " hides that it has the focus");
        control.setFocus();
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
            applyLook(isDark);
            for (const auto& [make, order] : Screens) {
                const std::unique_ptr<QWidget> screen = make();
                ShowScreen(*screen);
                if (!screen->screen()->availableGeometry().contains(screen->frameGeometry()))
                    faults.append(screen->objectName() + " leaves the screen");
                const QRect used = screen->childrenRect();
                if (used.left() != screen->rect().right() - used.right())
                    faults.append(screen->objectName() + " has uneven edges");
                QCOMPARE(tabOrder(faults).join(u' '), order);
                for (const bool isSmallest : {false, true}) {
                    if (isSmallest)
                        screen->resize(1, 1);
                    QCoreApplication::processEvents();
                    for (QWidget* control : screen->findChildren<QWidget*>())
                        check(*screen, *control, faults);
                }
            }
        }
        QVERIFY2(faults.isEmpty(), qPrintable(u'\n' + faults.join(u'\n')));
    }

    void picturesAreSharp() {
        const Quiz quiz;
        for (const bool isDark : {false, true}) {
            applyLook(isDark);
            const char* look = isDark ? "dark" : "light";
            QVERIFY(QApplication::windowIcon().availableSizes().contains(QSize(128, 128)));
            const auto console = std::make_unique<frmMain>();
            auto& tile = Control<QAbstractButton>(*console, "cmdExit");
            QVERIFY(paints(tile, exact(look, "exit"), [&](auto i) { tile.setIcon(i); }));

            const auto results = ResultScreen();
            ShowScreen(*results);
            auto& list = Control<QTreeWidget>(*results, "lvTeams");
            auto& chooser = Control<QComboBox>(*results, "cboRounds");
            ClickRow(list, 0);
            chooser.showPopup();
            // What is selected is dark in either look.
            const QIcon rows[] = {exact("dark", "entered", QIcon::Selected), exact(look, "entered"),
                                  exact(look, "not-entered")};
            for (int row = 0; row < 3; ++row)
                QVERIFY(paints(list, rows[row],
                               [&](auto i) { list.topLevelItem(row)->setIcon(0, i); }));
            QVERIFY(paints(*chooser.view(), exact("dark", "round", QIcon::Active),
                           [&](auto i) { chooser.setItemIcon(0, i); }));
            chooser.hidePopup();
        }
    }

private:
    // As on a desktop of such a palette, once with letters that are small, once with large ones
    // where the desktop does not enlarge everything.
    static void applyLook(bool isDark) {
        const bool isLarge = isDark && qApp->devicePixelRatio() == 1;
        QApplication::setPalette(QPalette(isDark ? Qt::black : Qt::white));
        QApplication::setFont(QFont(QStringLiteral("Arial"), isLarge ? 18 : 8));
        Theme::Apply(*qApp);
        QCOMPARE(Theme::IsDark(), isDark);
        QCOMPARE(QApplication::font().pointSize(), isLarge ? 18 : 11);
    }

    static void check(const QWidget& screen, QWidget& control, QStringList& faults) {
        const QString name = control.objectName();
        const auto expect = [&](bool holds, const char* what) {
            if (!holds)
                faults.append(screen.objectName() + u'.' + name + ": " + what);
        };
        // Not what Qt puts inside a control.
        if (!control.isVisible() || name.isEmpty() || name.startsWith("qt_"))
            return;
        expect(hasRoom(screen, control), "is cut");
        expect(showsItsPurpose(control), "does not show its purpose");
        const bool isButton = qobject_cast<QAbstractButton*>(&control);
        const bool isByKey = control.focusPolicy() & Qt::TabFocus;
        expect(!isButton || isByKey, "wants a mouse");
        const bool isBox = isByKey || qobject_cast<QLineEdit*>(&control);
        expect(!isBox || hasBorder(control), "has no border");
        auto* tick = qobject_cast<QCheckBox*>(&control);
        expect(!tick || showsItsTick(*tick), "does not show its tick");
        // A patch of colour on the options screen holds no text.
        const auto* label = qobject_cast<QLabel*>(&control);
        expect((label && label->text().isEmpty()) || isReadable(control), "is hard to read");
    }
};

QTEST_MAIN(LookTest)
#include "LookTest.moc"
