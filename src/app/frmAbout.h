#pragma once

#include <QDialog>

class QGridLayout;
class QLabel;

/// Who made the program, and which version of it this is. The same window is the about box, which
/// its Close button and Esc close, and the splash screen at start-up, which nothing closes.
class frmAbout : public QDialog {
    Q_OBJECT

public:
    explicit frmAbout(QWidget* parent = nullptr);

    /// Shows the about box over `parent` and returns when it is closed.
    static void ShowAbout(QWidget* parent);

    /// Shows the splash screen, and returns 2000 milliseconds after it was painted, when it is gone
    /// again. Keys and clicks are lost meanwhile, so that none reaches the console unseen.
    static void ShowSplash();

private:
    QLabel* addLabel(QGridLayout& layout, const char* name, const QString& text, int points);
};
