#include "display/frmOptions.h"

#include "app/Chooser.h"
#include "app/Messages.h"
#include "app/PictureButton.h"
#include "app/TextBoxFocus.h"
#include "app/Theme.h"
#include "app/modCommon.h"
#include "core/Guard.h"
#include "core/Numbers.h"
#include "core/RuntimeError.h"
#include "data/DBObject.h"
#include "display/BoardGeometry.h"
#include "display/BoardLayout.h"
#include "display/BoardPreview.h"

#include <QCheckBox>
#include <QColorDialog>
#include <QEvent>
#include <QFontDatabase>
#include <QGridLayout>
#include <QGroupBox>
#include <QLabel>
#include <QLineEdit>

namespace {

constexpr const char* Component = "frmOptions";
constexpr int SizeLength = 3;
const QString DebugOn = QStringLiteral("1");
const QString DebugOff = QStringLiteral("0");

/// A list that takes a text of its own too: the font may be one of another computer.
Chooser* makeCombo(const char* name, int usualLength) {
    auto* combo = new Chooser;
    combo->setObjectName(QLatin1StringView(name));
    combo->setEditable(true);
    combo->setInsertPolicy(QComboBox::NoInsert);
    // Measuring hundreds of names would hold up the screen.
    combo->setSizeAdjustPolicy(QComboBox::AdjustToMinimumContentsLengthWithIcon);
    combo->setMinimumContentsLength(usualLength);
    return combo;
}

void selectOrKeep(QComboBox& combo, const QString& text) {
    if (!modCommon::SelectListItem(combo, text))
        combo.setEditText(text);
}

QGroupBox* makeGroup(const char* name, const QString& caption) {
    auto* group = new QGroupBox(caption);
    group->setObjectName(QLatin1StringView(name));
    return group;
}

QLabel* makeLabel(const char* name, const char* caption) {
    auto* label = new QLabel(QLatin1StringView(caption));
    label->setObjectName(QLatin1StringView(name));
    return label;
}

QLabel* makeUnit() {
    auto* unit = new QLabel(QStringLiteral("twips, 15 to a pixel"));
    unit->setForegroundRole(QPalette::PlaceholderText);
    return unit;
}

QColor colorIn(const QLabel& swatch) {
    return swatch.palette().color(QPalette::Window);
}

void paintSwatch(QLabel& swatch, const QColor& color) {
    QPalette palette = swatch.palette();
    palette.setColor(QPalette::Window, color);
    swatch.setPalette(palette);
    swatch.setAccessibleDescription(color.name());
}

} // namespace

frmOptions::frmOptions(QWidget* parent, std::function<void(QWidget* over)> showAbout)
    : QDialog(parent)
    , m_showAbout(std::move(showAbout)) {
    setObjectName(QStringLiteral("frmOptions"));
    setWindowTitle(QStringLiteral("Settings"));
    Guarded("Form_Load", Component, [this] {
        auto* layout = new QGridLayout(this);
        constexpr int margin = 2 * Theme::Unit;
        layout->setContentsMargins(margin, margin, margin, margin);
        layout->setHorizontalSpacing(margin);
        layout->setVerticalSpacing(Theme::Unit); // as high as a small screen lets it
        layout->addWidget(makeFontGroup(), 0, 0, 1, 2);
        layout->addWidget(makeColorGroup("fraPrimaryColours",
                                         QStringLiteral("Primary Display Colour"),
                                         {"lblBackColor_A", "lblBackColorA", "cmdBackColourA",
                                          "Background Colour:", &DisplaySettings::BColorA},
                                         {"lblForeColour_A", "lblForeColorA", "cmdForeColourA",
                                          "Fore Colour:", &DisplaySettings::FColorA}),
                          1, 0);
        layout->addWidget(makeColorGroup("fraSecondaryColours",
                                         QStringLiteral("Secondary Display Colour"),
                                         {"lblBackColor_B", "lblBackColorB", "cmdBackColourB",
                                          "Background Colour:", &DisplaySettings::BColorB},
                                         {"lblForeColour_B", "lblForeColorB", "cmdForeColourB",
                                          "Fore Colour:", &DisplaySettings::FColorB}),
                          1, 1);
        layout->addWidget(makeScreenGroup(), 2, 0);
        layout->addWidget(makePaddingGroup(), 2, 1);
        layout->addLayout(makePreview(), 0, 2, 3, 1);
        layout->addLayout(makeFoot(), 3, 0, 1, 3);
        layout->setColumnStretch(2, 1);
        layout->setRowStretch(4, 1);
        load();
        draw();
    });
}

QLayout* frmOptions::makePreview() {
    auto* column = new QVBoxLayout;
    m_preview = new BoardPreview(parentWidget());
    lblFit = makeLabel("lblFit", "");
    lblFit->setWordWrap(true);
    column->addWidget(m_preview);
    column->addWidget(lblFit);
    column->addStretch(1);
    m_drawing.setSingleShot(true);
    connect(&m_drawing, &QTimer::timeout, this, &frmOptions::draw);
    for (const QComboBox* combo : {cboDisplayFont, cboDisplaySize})
        connect(combo, &QComboBox::editTextChanged, this, &frmOptions::drawSoon);
    for (const auto& [box, setting] : m_numberBoxes)
        connect(box, &QLineEdit::textChanged, this, &frmOptions::drawSoon);
    return column;
}

QGroupBox* frmOptions::makeFontGroup() {
    auto* group = makeGroup("fraFonts", QStringLiteral("Display Font"));
    auto* layout = new QHBoxLayout(group);
    constexpr int usualName = 24;
    cboDisplayFont = makeCombo("cboDisplayFont", usualName);
    cboDisplaySize = makeCombo("cboDisplaySize", SizeLength);
    cboDisplaySize->setCompleter(nullptr); // 7 is 7, not the 70 of the list
    layout->addWidget(cboDisplayFont, 1);
    layout->addWidget(cboDisplaySize);
    cboDisplayFont->SetSpokenName(QStringLiteral("Font"));
    cboDisplaySize->SetSpokenName(QStringLiteral("Size in points"));
    layout->addWidget(new QLabel(QStringLiteral("points")));
    return group;
}

QGroupBox* frmOptions::makeColorGroup(const char* name, const QString& caption,
                                      const ColorRow& back, const ColorRow& fore) {
    auto* group = makeGroup(name, caption);
    auto* layout = new QGridLayout(group);
    addColor(*layout, 0, back);
    addColor(*layout, 1, fore);
    return group;
}

QGroupBox* frmOptions::makeScreenGroup() {
    auto* group = makeGroup("fraBackGround", QStringLiteral("Screen Settings"));
    auto* layout = new QGridLayout(group);
    auto* color = new QGridLayout;
    color->setColumnStretch(1, 1);
    addColor(*color, 0,
             {"lblBackgroundC", "lblBackground", "cmdBackground",
              "Colour:", &DisplaySettings::BackGround});
    layout->addLayout(color, 0, 0, 1, 4);
    addNumber(*layout, 1, 0,
              {"lblLMargin", "txtLMargin", "Left Margin:", &DisplaySettings::LeftMargin});
    addNumber(*layout, 1, 2, {"lblRMargin", "txtRMargin", "Right:", &DisplaySettings::RightMargin});
    addNumber(*layout, 2, 0, {"lblFooter", "txtFooter", "Footer:", &DisplaySettings::Footer});
    layout->addWidget(makeUnit(), 2, 2, 1, 2);
    return group;
}

QGroupBox* frmOptions::makePaddingGroup() {
    auto* group = makeGroup("fraPadding", QStringLiteral("Cell Padding"));
    auto* layout = new QGridLayout(group);
    addNumber(*layout, 0, 0,
              {"lblCellPadX", "txtCellPadX", "Horizontal:", &DisplaySettings::CellPadX});
    addNumber(*layout, 1, 0,
              {"lblCellPadY", "txtCellPadY", "Vertical:", &DisplaySettings::CellPadY});
    addNumber(*layout, 2, 0,
              {"lblCellWidth", "txtCellWidth", "Width:", &DisplaySettings::LabelWidth});
    layout->addWidget(makeUnit(), 0, 2);
    layout->addWidget(makeUnit(), 1, 2);
    auto* share = new QLabel(QStringLiteral("more is narrower"));
    share->setForegroundRole(QPalette::PlaceholderText);
    layout->addWidget(share, 2, 2);
    return group;
}

QLayout* frmOptions::makeFoot() {
    auto* foot = new QHBoxLayout;
    foot->setSpacing(Theme::Unit);
    chkDebugMode = new QCheckBox(QStringLiteral("Debug Messages"));
    chkDebugMode->setObjectName(QStringLiteral("chkDebugMode"));
    // Far from the others, for a click beside them must not land on it.
    auto* reset = makeButton("cmdReset", QStringLiteral("reset"),
                             QStringLiteral("Reset database and remove all data"),
                             [this] { resetDatabase(); });
    reset->ShowText(QStringLiteral("Delete All Data..."));
    QPalette warning;
    warning.setColor(QPalette::ButtonText, Theme::Warning());
    reset->setPalette(warning);
    foot->addWidget(reset);
    foot->addStretch();
    foot->addWidget(chkDebugMode);
    foot->addSpacing(2 * Theme::Unit);
    auto* save = makeButton("cmdSave", QStringLiteral("save"), QStringLiteral("Save Settings"),
                            [this] { this->save(); });
    save->ShowText(QStringLiteral("Save"));
    auto* close = makeButton("cmdClose", QStringLiteral("close"), QStringLiteral("Close Window"),
                             [this] { reject(); });
    close->ShowText(QStringLiteral("Close"));
    foot->addWidget(save);
    foot->addWidget(close);
    foot->addWidget(makeButton("cmdAbout", QStringLiteral("about"),
                               QStringLiteral("Display Application Information"),
                               [this] { m_showAbout(this); }));
    return foot;
}

void frmOptions::addColor(QGridLayout& layout, int row, const ColorRow& color) {
    QLabel* label = makeLabel(color.label, color.caption);
    QLabel* swatch = makeLabel(color.swatch, "");
    swatch->setFrameStyle(QFrame::Box | QFrame::Plain);
    swatch->setAutoFillBackground(true);
    swatch->setAccessibleName(label->text());
    swatch->setMinimumWidth(10 * Theme::Unit);
    m_swatches.push_back({swatch, color.setting});
    QString purpose = label->text();
    purpose.replace(u':', QStringLiteral("..."));
    swatch->installEventFilter(this);
    QWidget* button = makeButton(color.button, QStringLiteral("colour"), purpose,
                                 [this, swatch] { chooseColor(*swatch); });
    layout.addWidget(label, row, 0);
    layout.addWidget(swatch, row, 1);
    layout.addWidget(button, row, 2);
}

void frmOptions::addNumber(QGridLayout& layout, int row, int column, const NumberRow& number) {
    QLabel* label = makeLabel(number.label, number.caption);
    auto* box = new QLineEdit;
    box->setObjectName(QLatin1StringView(number.box));
    TextBoxFocus::Attach(box, TextBoxFocus::Colors::Palette);
    box->setFixedWidth(box->fontMetrics().horizontalAdvance(QStringLiteral("00000")) +
                       2 * Theme::Unit);
    label->setBuddy(box);
    m_numberBoxes.push_back({box, number.setting});
    layout.addWidget(label, row, column);
    layout.addWidget(box, row, column + 1);
}

PictureButton* frmOptions::makeButton(const char* name, const QString& icon, const QString& toolTip,
                                      const std::function<void()>& action) {
    auto* button = new PictureButton(QLatin1StringView(name), icon, toolTip);
    const QByteArray procedure = QByteArray(name) + "_Click";
    connect(button, &PictureButton::clicked, this,
            [procedure, action] { Guarded(procedure.constData(), Component, action); });
    return button;
}

void frmOptions::load() {
    cboDisplayFont->addItems(QFontDatabase::families());
    for (const int size : ListedSizes())
        cboDisplaySize->addItem(QString::number(size));
    const DisplaySettings& settings = modCommon::AppSettings();
    selectOrKeep(*cboDisplayFont, settings.FontName);
    selectOrKeep(*cboDisplaySize, settings.FontSize);
    for (const auto& [swatch, setting] : m_swatches)
        paintSwatch(*swatch, ColorOf(settings.*setting));
    for (const auto& [box, setting] : m_numberBoxes)
        box->setText(QString::number(settings.*setting));
    chkDebugMode->setChecked(settings.DebugMode == DebugOn);
}

void frmOptions::chooseColor(QLabel& swatch) {
    QColorDialog dialog(colorIn(swatch), this);
    dialog.setObjectName(QStringLiteral("ctlDialog"));
    dialog.setWindowTitle(QStringLiteral("Colour Properties"));
    dialog.setOption(QColorDialog::DontUseNativeDialog);
    if (dialog.exec() == QDialog::Accepted)
        paintSwatch(swatch, dialog.selectedColor());
    drawSoon();
}

DisplaySettings frmOptions::edited() const {
    DisplaySettings settings = modCommon::AppSettings();
    settings.FontName = cboDisplayFont->currentText();
    settings.FontSize = cboDisplaySize->currentText();
    for (const auto& [swatch, setting] : m_swatches)
        settings.*setting = ColorValue(colorIn(*swatch));
    for (const auto& [box, setting] : m_numberBoxes) {
        if (const auto number = ParseNumber(box->text()))
            settings.*setting = ToInt32(*number);
    }
    settings.DebugMode = chkDebugMode->isChecked() ? DebugOn : DebugOff;
    return settings;
}

// The operator's next key comes first.
void frmOptions::drawSoon() {
    m_drawing.start(0);
}

void frmOptions::draw() {
    bool isWhole = false;
    try {
        isWhole = m_preview->Draw(edited());
    } catch (const RuntimeError&) {
        // A number too large; saving will tell.
    }
    lblFit->setText(isWhole ? m_preview->Fit() : QStringLiteral("The board cannot be drawn so"));
}

void frmOptions::save() {
    // As a whole, so that a number too large leaves every setting as it was.
    modCommon::AppSettings() = edited();
    if (modCommon::Settings(modCommon::SaveSettings) &&
        modCommon::Settings(modCommon::LoadSettings))
        accept();
}

// A click on a colour chooses another one, as its button does.
bool frmOptions::eventFilter(QObject* watched, QEvent* event) {
    if (event->type() == QEvent::MouseButtonRelease)
        for (const Swatch& swatch : m_swatches)
            if (swatch.label == watched)
                Guarded("lblColour_Click", Component, [&] { chooseColor(*swatch.label); });
    return QDialog::eventFilter(watched, event);
}

void frmOptions::resetDatabase() {
    const auto answer = Messages::Ask(
        this, QStringLiteral("Are you sure you wish to delete all data?"),
        QStringLiteral("Reset Database"), QMessageBox::Yes, QMessageBox::No, QMessageBox::No);
    if (answer != QMessageBox::Yes)
        return;
    // A whole quiz is never thrown away by one wrong answer.
    if (!AppDatabase().KeepCopy()) {
        Messages::Inform(this, QStringLiteral("Operation failed to complete"),
                         QStringLiteral("Rankelo Error"));
        return;
    }
    if (!AppDatabase().ResetDatabase())
        return;
    Messages::Inform(this, QStringLiteral("Database reset succesful, application will now exit"),
                     QStringLiteral("Database reset"));
    modCommon::ExitApp();
}
