#pragma once

#include "core/DisplaySettings.h"

#include <QDialog>
#include <QTimer>

#include <functional>
#include <vector>

class BoardPreview;
class Chooser;
class PictureButton;
class QCheckBox;
class QGridLayout;
class QGroupBox;
class QLabel;
class QLineEdit;

/// The settings of the board on one screen, typeface, colours and spacing, beside a picture of the
/// board as the controls have it. None changes before they are saved. From here the operator also
/// opens the about box and may empty the database.
class frmOptions : public QDialog {
    Q_OBJECT

public:
    /// `showAbout` opens the about box over this screen.
    frmOptions(QWidget* parent, std::function<void(QWidget* over)> showAbout);

private:
    struct ColorRow {
        const char* label;
        const char* swatch;
        const char* button;
        const char* caption;
        qint32 DisplaySettings::*setting;
    };
    struct NumberRow {
        const char* label;
        const char* box;
        const char* caption;
        qint32 DisplaySettings::*setting;
    };
    struct Swatch {
        QLabel* label;
        qint32 DisplaySettings::*setting;
    };
    struct NumberBox {
        QLineEdit* box;
        qint32 DisplaySettings::*setting;
    };

    QGroupBox* makeFontGroup();
    QGroupBox* makeColorGroup(const char* name, const QString& caption, const ColorRow& back,
                              const ColorRow& fore);
    QGroupBox* makeScreenGroup();
    QGroupBox* makePaddingGroup();
    QLayout* makeFoot();
    void addColor(QGridLayout& layout, int row, const ColorRow& color);
    void addNumber(QGridLayout& layout, int row, int column, const NumberRow& number);
    PictureButton* makeButton(const char* name, const QString& icon, const QString& toolTip,
                              const std::function<void()>& action);
    bool eventFilter(QObject* watched, QEvent* event) override;

    QLayout* makePreview();
    void load();
    /// The settings as the controls have them; error 6 for a number too large.
    DisplaySettings edited() const;
    void drawSoon();
    void draw();
    void chooseColor(QLabel& swatch);
    void save();
    void resetDatabase();

    std::function<void(QWidget*)> m_showAbout;
    QTimer m_drawing;
    BoardPreview* m_preview = nullptr;
    QLabel* lblFit = nullptr;
    Chooser* cboDisplayFont = nullptr;
    Chooser* cboDisplaySize = nullptr;
    QCheckBox* chkDebugMode = nullptr;
    std::vector<Swatch> m_swatches;
    std::vector<NumberBox> m_numberBoxes;
};
