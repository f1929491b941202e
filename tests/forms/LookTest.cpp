#include "Quiz.h"
#include "app/PictureButton.h"
#include "app/Theme.h"
#include "app/TileButton.h"
#include "app/frmAbout.h"
#include "display/BoardLabel.h"
#include "display/frmOptions.h"
#include "display/frmViewResults.h"
#include "forms/frmEntry.h"
#include "forms/frmMain.h"
#include "support/PaintRecorder.h"

#include <QCheckBox>
#include <QComboBox>
#include <QGroupBox>
#include <QHeaderView>
#include <QLabel>
#include <QLayout>
#include <QPushButton>
#include <QTest>

#include <cmath>
#include <set>

namespace {

Screen resultsWindow() {
    auto screen = std::make_unique<frmViewResults>();
    screen->AddRow("1", "Ants", "14", "Played");
    Control<QComboBox>(*screen, "cboPrinter").addItem("Hall");
    return screen;
}

// Every screen but the board, filled; how it is laid out, and the way of Tab through it.
const struct {
    Screen (*Make)();
    const char* Layout;
    const char* TabOrder;
} Screens[] = {
    {Make<frmMain>, "frmMain 13, 11 grow: 8 16 24 apart, 11 15.4",
     "cboRounds chkShowAllRound cmdRoundSetup cmdTeamSetup cmdResultsEntry cmdDisplayRound "
     "cmdDisplayLeader cmdViewResults cmdViewLeader cmdConfiguration cmdExit"},
    {Make<frmTeamEntry>, "frmTeamEntry 7, 3 grow: 8 16 apart, 11, 80x68 units, 8 into the list",
     "txtTeamName cmdAdd cmdEdit cmdDelete lvTeams"},
    {Make<frmRoundEntry>, "frmRoundEntry 9, 3 grow: 8 16 apart, 11, 80x68 units, 8 into the list",
     "txtRoundName cmdAdd cmdEdit cmdDelete cmdMove_0 cmdMove_1 lvRounds"},
    {ResultScreen, "frmResultEntry 8, 3 grow: 8 16 apart, 11, 90x70 units, 48 into the list",
     "lvTeams cboRounds"},
    {[] {
         return Screen(
             new frmEntry(nullptr, {.Team = "Ants", .Round = "Music", .JokerRounds = {"Films"}}));
     },
     "frmEntry 8, 8 grow: 16 24 apart, 11 19.8 44", "txtScore chkJoker cmdOK cmdCancel"},
    {[] { return Screen(new frmOptions(nullptr, nullptr)); },
     "frmOptions 40, 1 grow: 8 16 24 apart, 11",
     "cboDisplayFont cboDisplaySize cmdBackColourA cmdForeColourA cmdBackColourB cmdForeColourB "
     "cmdBackground txtLMargin txtRMargin txtFooter txtCellPadX txtCellPadY txtCellWidth "
     "cmdReset chkDebugMode cmdSave cmdClose cmdAbout"},
    {resultsWindow, "frmViewResults 4, 2 grow: 16 apart, 11, 90x70 units, 8 into the list",
     "lvResults cboPrinter cmdPrint"},
    {Make<frmAbout>, "frmAbout 7, 0 grow: 8 32 apart, 11 14 28", "cmdClose"},
};

// Not what Qt puts inside a control.
bool isOurs(const QWidget& control) {
    return control.isVisible() && !control.objectName().isEmpty() &&
           !control.objectName().startsWith("qt_");
}

// How many controls a screen has and how many grow with it, how far they are apart and from the
// edges (-1 for one over another), the points of their letters, and how large a screen with a list
// opens in spacing units.
QString layoutOf(QWidget& screen) {
    QMap<const QWidget*, int> widths;
    std::set<double> gaps, letters;
    for (const QWidget* control : screen.findChildren<QWidget*>())
        if (isOurs(*control)) {
            widths[control] = control->width();
            letters.insert(control->font().pointSizeF());
        }
    for (const QLayout* layout : screen.findChildren<QLayout*>()) {
        const bool isByStyle = qobject_cast<QGroupBox*>(layout->parentWidget());
        const QMargins edges = layout->contentsMargins();
        for (const int edge : {edges.left(), edges.top(), edges.right(), edges.bottom()})
            gaps.insert(isByStyle ? 0 : edge);
        QRect last;
        for (int i = 0; i < layout->count(); ++i) {
            const QLayoutItem& item = *layout->itemAt(i);
            if (item.isEmpty() || item.alignment() == Qt::AlignCenter)
                continue;
            const QRect box = item.geometry();
            const int gap = std::max(box.left() - last.right(), box.top() - last.bottom()) - 1;
            if (last.isValid())
                gaps.insert(box.intersects(last) ? -1 : isByStyle ? 0 : std::max(gap, 0));
            last = box;
        }
    }
    QString text;
    for (const double gap : gaps)
        if (gap != 0 && gap <= 4 * Theme::Unit) // more is given away
            text += QString(" %1").arg(gap);
    text += " apart,";
    for (const double points : letters)
        text += QString(" %1").arg(points);
    if (const auto* list = screen.findChild<QTreeWidget*>())
        text += QString(", %1x%2 units, %3 into the list")
                    .arg(screen.width() / Theme::Unit)
                    .arg(screen.height() / Theme::Unit)
                    .arg(RecordedWidget(*list->viewport()).Recorder.Texts[0].Place.x());
    const QSize size = screen.size();
    screen.resize(size + QSize(200, 0));
    QCoreApplication::processEvents();
    const auto grow = std::ranges::count_if(
        widths.keys(), [&](auto* control) { return control->width() > widths[control]; });
    screen.resize(size);
    return QString("%1 %2, %3 grow:").arg(screen.objectName()).arg(widths.size()).arg(grow) + text;
}

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
        const QTreeWidgetItem& item = *list->topLevelItem(row);
        const int height = list->visualItemRect(&item).height();
        fits = fits && height == list->header()->height() &&
               height >= list->fontMetrics().height() + Theme::Unit;
        for (int column = 0; column < list->columnCount(); ++column) // as its head stands
            fits &= item.textAlignment(column) == list->headerItem()->textAlignment(column);
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
    return palette.color(P::Disabled, P::WindowText) != palette.color(P::Active, P::WindowText);
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
            for (const auto& [make, layout, order] : Screens) {
                const std::unique_ptr<QWidget> screen = make();
                ShowScreen(*screen);
                if (!screen->screen()->availableGeometry().contains(screen->frameGeometry()))
                    faults.append(screen->objectName() + " leaves the screen");
                if (!isDark && qApp->devicePixelRatio() == 1)
                    QCOMPARE(layoutOf(*screen), layout);
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

    void tilesAreEven() {
        const Quiz quiz;
        applyLook(false);
        const auto console = std::make_unique<frmMain>();
        ShowScreen(*console);
        QMap<int, int> widths;
        for (const auto* each : console->findChildren<TileButton*>())
            ++widths[each->width()];
        QCOMPARE(widths.values(), QList({8, 1})); // one is two columns wide
        // On a large screen the room lies around them.
        console->resize(3000, 1500);
        const QRect tiles = Control<TileButton>(*console, "cmdExit").parentWidget()->geometry();
        QCOMPARE(tiles, QRect(QPoint(900, tiles.y()), QSize(1200, 512)));
        QVERIFY(std::abs(tiles.center().y() - 750) < 50);

        TileButton tile("tile", "exit", "Exit", "", "Esc");
        tile.resize(200, 200);
        // Under the pointer it is tinted, and pressed more so.
        const auto face = [&] { return tile.grab().toImage().pixelColor(20, 20).name(); };
        QString faces = tile.grab().toImage().pixelColor(0, 100).name() + face();
        tile.setAttribute(Qt::WA_UnderMouse);
        faces += face();
        tile.setDown(true);
        QCOMPARE(faces + face(), "#5c6a76#ffffff#e0f3f9#b3e0f0");
        // In its middle stand picture, caption and key.
        const RecordedWidget drawn(tile);
        QString words;
        for (const auto& [place, text, width, font, color] : drawn.Recorder.Texts)
            words += text + QString::number(qRound(place.x() + width / 2)) + color.name();
        QCOMPARE(words, "Exit100#1f2a33Esc100#556570");
        const auto& key = drawn.Recorder.Texts[1];
        const QRectF picture = drawn.Recorder.Pictures[0];
        const double below = 200 - key.Place.y() - QFontMetrics(key.Font).descent();
        QVERIFY(picture.center().x() == 100 && std::abs(picture.y() - below) < 2);
    }

    void picturesAreSharp() {
        const Quiz quiz;
        for (const bool isDark : {false, true}) {
            applyLook(isDark);
            const char* look = isDark ? "dark" : "light";
            QVERIFY(QApplication::windowIcon().availableSizes().contains(QSize(128, 128)));
            TileButton tile("tile", "exit", "", "", "");
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
        if (!isOurs(control))
            return;
        expect(hasRoom(screen, control), "is cut");
        const bool isSmall = control.height() != 5 * Theme::Unit;
        expect(!isSmall || !qobject_cast<PictureButton*>(&control), "is hard to hit");
        const bool warns = control.palette().color(QPalette::ButtonText) == Theme::Warning();
        expect(warns == (name == "cmdReset"), "warns, or not");
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
