#include "display/frmOptions.h"

#include "app/Messages.h"
#include "app/PictureButton.h"
#include "app/TextBoxFocus.h"
#include "app/Theme.h"
#include "app/modCommon.h"
#include "core/Guard.h"
#include "core/Numbers.h"
#include "data/DBObject.h"
#include "display/BoardGeometry.h"
#include "display/BoardLayout.h"

#include <QCheckBox>
#include <QColorDialog>
#include <QComboBox>
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
QComboBox* makeCombo(const char* name, const QString& purpose, int usualLength) {
    auto* combo = new QComboBox;
    combo->setObjectName(QLatin1StringView(name));
    combo->setAccessibleName(purpose);
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

QColor colourOf(const QLabel& swatch) {
    return swatch.palette().color(QPalette::Window);
}

void paintSwatch(QLabel& swatch, const QColor& colour) {
    QPalette palette = swatch.palette();
    palette.setColor(QPalette::Window, colour);
    swatch.setPalette(palette);
    swatch.setAccessibleDescription(colour.name());
}

} // namespace

frmOptions::frmOptions(QWidget* parent, std::function<void(QWidget* over)> showAbout)
    : QDialog(parent)
    , m_settings(modCommon::AppSettings())
    , m_showAbout(std::move(showAbout)) {
    setObjectName(QStringLiteral("frmOptions"));
    setWindowTitle(QStringLiteral("Settings"));
    Guarded("Form_Load", Component, [this] {
        auto* layout = new QGridLayout(this);
        constexpr int margin = 2 * Theme::Unit;
        layout->setContentsMargins(margin, margin, margin, margin);
        layout->setSpacing(margin);
        layout->addWidget(makeFontGroup(), 0, 0, 1, 2);
        layout->addWidget(makeColourGroup("fraPrimaryColours",
                                          QStringLiteral("Primary Display Colour"),
                                          {"lblBackColor_A", "lblBackColorA", "cmdBackColourA",
                                           "Background Colour:", &DisplaySettings::BColorA},
                                          {"lblForeColour_A", "lblForeColorA", "cmdForeColourA",
                                           "Fore Colour:", &DisplaySettings::FColorA}),
                          1, 0);
        layout->addWidget(makeColourGroup("fraSecondaryColours",
                                          QStringLiteral("Secondary Display Colour"),
                                          {"lblBackColor_B", "lblBackColorB", "cmdBackColourB",
                                           "Background Colour:", &DisplaySettings::BColorB},
                                          {"lblForeColour_B", "lblForeColorB", "cmdForeColourB",
                                           "Fore Colour:", &DisplaySettings::FColorB}),
                          1, 1);
        layout->addWidget(makeScreenGroup(), 2, 0);
        layout->addWidget(makePaddingGroup(), 2, 1);
        layout->addLayout(makeFoot(), 3, 0, 1, 2);
        layout->setColumnStretch(0, 1);
        layout->setColumnStretch(1, 1);
        layout->setRowStretch(4, 1);
        load();
    });
}

QGroupBox* frmOptions::makeFontGroup() {
    auto* group = makeGroup("fraFonts", QStringLiteral("Display Font"));
    auto* layout = new QHBoxLayout(group);
    constexpr int usualName = 24;
    cboDisplayFont = makeCombo("cboDisplayFont", QStringLiteral("Font"), usualName);
    cboDisplaySize = makeCombo("cboDisplaySize", QStringLiteral("Size in points"), SizeLength);
    layout->addWidget(cboDisplayFont, 1);
    layout->addWidget(cboDisplaySize);
    return group;
}

QGroupBox* frmOptions::makeColourGroup(const char* name, const QString& caption,
                                       const ColourRow& back, const ColourRow& fore) {
    auto* group = makeGroup(name, caption);
    auto* layout = new QGridLayout(group);
    layout->setColumnStretch(1, 1);
    addColour(*layout, 0, back);
    addColour(*layout, 1, fore);
    return group;
}

QGroupBox* frmOptions::makeScreenGroup() {
    auto* group = makeGroup("fraBackGround", QStringLiteral("Screen Settings"));
    auto* layout = new QGridLayout(group);
    layout->setColumnStretch(1, 1);
    layout->setColumnStretch(3, 1);
    auto* colour = new QGridLayout;
    colour->setColumnStretch(1, 1);
    addColour(*colour, 0,
              {"lblBackgroundC", "lblBackground", "cmdBackground",
               "Colour:", &DisplaySettings::BackGround});
    layout->addLayout(colour, 0, 0, 1, 4);
    addNumber(*layout, 1, 0,
              {"lblLMargin", "txtLMargin", "Left Margin:", &DisplaySettings::LeftMargin});
    addNumber(*layout, 1, 2, {"lblRMargin", "txtRMargin", "Right:", &DisplaySettings::RightMargin});
    addNumber(*layout, 2, 0, {"lblFooter", "txtFooter", "Footer:", &DisplaySettings::Footer});
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
    return group;
}

QLayout* frmOptions::makeFoot() {
    auto* foot = new QHBoxLayout;
    foot->setSpacing(Theme::Unit);
    chkDebugMode = new QCheckBox(QStringLiteral("Debug Messages"));
    chkDebugMode->setObjectName(QStringLiteral("chkDebugMode"));
    foot->addWidget(chkDebugMode);
    foot->addStretch();
    foot->addWidget(makeButton("cmdSave", QStringLiteral("save"), QStringLiteral("Save Settings"),
                               [this] { save(); }));
    foot->addWidget(makeButton("cmdClose", QStringLiteral("close"), QStringLiteral("Close Window"),
                               [this] { reject(); }));
    foot->addWidget(makeButton("cmdAbout", QStringLiteral("about"),
                               QStringLiteral("Display Application Information"),
                               [this] { m_showAbout(this); }));
    // Apart from the others, for a click beside them must not land on it.
    foot->addSpacing(3 * Theme::Unit);
    foot->addWidget(makeButton("cmdReset", QStringLiteral("reset"),
                               QStringLiteral("Reset database and remove all data"),
                               [this] { resetDatabase(); }));
    return foot;
}

void frmOptions::addColour(QGridLayout& layout, int row, const ColourRow& colour) {
    QLabel* label = makeLabel(colour.label, colour.caption);
    QLabel* swatch = makeLabel(colour.swatch, "");
    swatch->setFrameStyle(QFrame::Box | QFrame::Plain);
    swatch->setAutoFillBackground(true);
    swatch->setAccessibleName(label->text());
    swatch->setMinimumWidth(10 * Theme::Unit);
    m_swatches.push_back({swatch, colour.setting});
    QString purpose = label->text();
    purpose.replace(u':', QStringLiteral("..."));
    QWidget* button = makeButton(colour.button, QStringLiteral("colour"), purpose,
                                 [this, swatch] { chooseColour(*swatch); });
    layout.addWidget(label, row, 0);
    layout.addWidget(swatch, row, 1);
    layout.addWidget(button, row, 2);
}

void frmOptions::addNumber(QGridLayout& layout, int row, int column, const NumberRow& number) {
    QLabel* label = makeLabel(number.label, number.caption);
    auto* box = new QLineEdit;
    box->setObjectName(QLatin1StringView(number.box));
    TextBoxFocus::Attach(box);
    label->setBuddy(box);
    m_numberBoxes.push_back({box, number.setting});
    layout.addWidget(label, row, column);
    layout.addWidget(box, row, column + 1);
}

QWidget* frmOptions::makeButton(const char* name, const QString& icon, const QString& toolTip,
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
    selectOrKeep(*cboDisplayFont, m_settings.FontName);
    selectOrKeep(*cboDisplaySize, m_settings.FontSize);
    for (const auto& [swatch, setting] : m_swatches)
        paintSwatch(*swatch, ColorOf(m_settings.*setting));
    for (const auto& [box, setting] : m_numberBoxes)
        box->setText(QString::number(m_settings.*setting));
    chkDebugMode->setChecked(m_settings.DebugMode == DebugOn);
}

void frmOptions::chooseColour(QLabel& swatch) {
    QColorDialog dialog(colourOf(swatch), this);
    dialog.setObjectName(QStringLiteral("ctlDialog"));
    dialog.setWindowTitle(QStringLiteral("Colour Properties"));
    dialog.setOption(QColorDialog::DontUseNativeDialog);
    if (dialog.exec() == QDialog::Accepted)
        paintSwatch(swatch, dialog.selectedColor());
}

void frmOptions::takeOver() {
    // As a whole, so that a number too large leaves every setting as it was.
    DisplaySettings edited = m_settings;
    edited.FontName = cboDisplayFont->currentText();
    edited.FontSize = cboDisplaySize->currentText();
    for (const auto& [swatch, setting] : m_swatches)
        edited.*setting = ColorValue(colourOf(*swatch));
    for (const auto& [box, setting] : m_numberBoxes) {
        if (const auto number = ParseNumber(box->text()))
            edited.*setting = ToInt32(*number);
    }
    edited.DebugMode = chkDebugMode->isChecked() ? DebugOn : DebugOff;
    m_settings = edited;
}

void frmOptions::save() {
    takeOver();
    modCommon::AppSettings() = m_settings;
    if (modCommon::Settings(modCommon::SaveSettings) &&
        modCommon::Settings(modCommon::LoadSettings))
        accept();
}

void frmOptions::resetDatabase() {
    const auto answer = Messages::Ask(
        this, QStringLiteral("Are you sure you wish to delete all data?"),
        QStringLiteral("Reset Database"), QMessageBox::Yes, QMessageBox::No, QMessageBox::No);
    if (answer != QMessageBox::Yes || !AppDatabase().ResetDatabase())
        return;
    Messages::Inform(this, QStringLiteral("Database reset succesful, application will now exit"),
                     QStringLiteral("Database reset"));
    modCommon::ExitApp();
}
