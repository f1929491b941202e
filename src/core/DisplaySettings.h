#pragma once

#include <QString>
#include <QtGlobal>

#include <variant>

/// How the board looks, under the names of the keys in "Rankelo.INI". Colours are
/// red + 256 * green + 65536 * blue, distances are twips.
struct DisplaySettings {
    /// Every setting at its default.
    DisplaySettings();

    QString FontName;
    QString FontSize;  ///< points, a whole number as text
    QString DebugMode; ///< "1" shows every error on the screen
    qint32 BackGround{};
    qint32 BColorA{};
    qint32 FColorA{};
    qint32 BColorB{};
    qint32 FColorB{};
    qint32 CellPadX{};
    qint32 CellPadY{};
    qint32 LeftMargin{};
    qint32 RightMargin{};
    qint32 LabelWidth{}; ///< a divisor of the column width, not a width
    qint32 Footer{};

    bool operator==(const DisplaySettings&) const = default;
};

/// One setting as the file knows it.
struct Setting {
    static constexpr int NotSaved = 0;

    const char* Key;
    const char* Default; ///< stands in for a missing or empty value
    std::variant<QString DisplaySettings::*, qint32 DisplaySettings::*> Member;
    int SavedAs; ///< its place among the lines of a new file, counted from 1

    QString TextIn(const DisplaySettings& settings) const;
    /// Error 13 for a text that is no number where one is wanted, error 6 for one beyond 32 bits.
    void Assign(DisplaySettings& settings, const QString& text) const;
};

/// Every setting in the order in which they are read. The footer height is never saved, so that a
/// value put into the file by hand is nobody's but the hand's.
inline constexpr Setting SettingsTable[] = {
    {"FontName", "Arial", &DisplaySettings::FontName, 1},
    {"FontSize", "32", &DisplaySettings::FontSize, 2},
    {"DebugMode", "0", &DisplaySettings::DebugMode, 3},
    {"BackGround", "0", &DisplaySettings::BackGround, 4},
    {"BColorA", "16576", &DisplaySettings::BColorA, 6},
    {"BColorB", "16512", &DisplaySettings::BColorB, 8},
    {"FColorA", "8454143", &DisplaySettings::FColorA, 5},
    {"FColorB", "8454143", &DisplaySettings::FColorB, 7},
    {"CellPadX", "40", &DisplaySettings::CellPadX, 9},
    {"CellPadY", "80", &DisplaySettings::CellPadY, 10},
    {"LeftMargin", "200", &DisplaySettings::LeftMargin, 11},
    {"RightMargin", "200", &DisplaySettings::RightMargin, 12},
    {"LabelWidth", "7", &DisplaySettings::LabelWidth, 13},
    {"Footer", "500", &DisplaySettings::Footer, Setting::NotSaved},
};
