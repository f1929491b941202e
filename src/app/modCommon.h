#pragma once

#include "core/DisplaySettings.h"

#include <QtGlobal>

class QComboBox;
class QString;

/// Start-up's and every screen's common services.
namespace modCommon {

/// The settings in force. Who draws is given them; they change only by Settings and by the options
/// screen.
DisplaySettings& AppSettings();

enum SettingsMode : qint32 { LoadSettings = 1, SaveSettings = 2 };

/// Loads the settings from "Rankelo.INI" beside the executable, or saves them there, reading and
/// writing the file once; any other mode does nothing. False when a value is no number or the file
/// cannot be read or written; the values up to that key are then done.
bool Settings(qint32 mode);

/// Closes the database and ends the process at once, with exit status 0.
void ExitApp();

/// Selects the first entry whose text equals the given one, in upper or lower case. False when
/// there is none; the selection then stays.
bool SelectListItem(QComboBox& list, const QString& text);

} // namespace modCommon
