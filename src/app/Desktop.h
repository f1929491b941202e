#pragma once

#include <QPointer>
#include <QWidget>

/// Gives core what needs a desktop: the log its error box, shown while the setting `DebugMode` is
/// "1", and the utilities the way to open a document with the desktop's program for it. Tells
/// screen readers what windows, picture buttons and status lines are.
void ConnectDesktop();

/// The dynamic property of a label that is its window's status to a screen reader.
inline constexpr const char* IsStatus = "IsStatus";

/// The box of a program error, over the window in use.
void ShowErrorBox(const QString& text);

/// While one lives, boxes of program errors open over its window instead.
class ErrorBoxesOver {
public:
    explicit ErrorBoxesOver(QWidget& window);
    ~ErrorBoxesOver();
    Q_DISABLE_COPY(ErrorBoxesOver)

private:
    QPointer<QWidget> m_before;
};
