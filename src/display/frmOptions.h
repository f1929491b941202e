#pragma once

#include "core/AppValues.h"

#include <QDialog>

#include <functional>
#include <vector>

class QCheckBox;
class QComboBox;
class QGridLayout;
class QGroupBox;
class QLabel;
class QLineEdit;

/// The settings of the board on one screen: typeface, colours, spacing. None changes before they
/// are saved. From here the operator also opens the about box and may empty the database.
class frmOptions : public QDialog {
    Q_OBJECT

public:
    explicit frmOptions(QWidget* parent = nullptr);

private:
    struct ColourRow {
        const char* label;
        const char* swatch;
        const char* button;
        const char* caption;
        qint32 AppValues::*setting;
    };
    struct NumberRow {
        const char* label;
        const char* box;
        const char* caption;
        qint32 AppValues::*setting;
    };
    struct Swatch {
        QLabel* label;
        qint32 AppValues::*setting;
    };
    struct NumberBox {
        QLineEdit* box;
        qint32 AppValues::*setting;
    };

    QGroupBox* makeFontGroup();
    QGroupBox* makeColourGroup(const char* name, const QString& caption, const ColourRow& back,
                               const ColourRow& fore);
    QGroupBox* makeScreenGroup();
    QGroupBox* makePaddingGroup();
    QLayout* makeFoot();
    void addColour(QGridLayout& layout, int row, const ColourRow& colour);
    void addNumber(QGridLayout& layout, int row, int column, const NumberRow& number);
    QWidget* makeButton(const char* name, const QString& icon, const QString& toolTip,
                        const std::function<void()>& action);

    void load();
    void chooseColour(QLabel& swatch);
    void save();
    void resetDatabase();

    QComboBox* cboDisplayFont = nullptr;
    QComboBox* cboDisplaySize = nullptr;
    QCheckBox* chkDebugMode = nullptr;
    std::vector<Swatch> m_swatches;
    std::vector<NumberBox> m_numberBoxes;
};
