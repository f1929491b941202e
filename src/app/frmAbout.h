#pragma once

#include <QDialog>

class QGridLayout;
class QLabel;
class QPushButton;

/// Who made the program, and which version of it this is. The same window is the about box, which
/// its Close button and Esc close, and the splash screen at start-up, which nothing closes.
class frmAbout : public QDialog {
    Q_OBJECT

public:
    explicit frmAbout(QWidget* parent = nullptr);

    /// Shows the window as the splash screen, without its Close button, and returns 2000
    /// milliseconds after it was painted. Keys and clicks are lost meanwhile, so that none reaches
    /// the console unseen.
    void RunAsSplash();

private:
    QLabel* addLabel(QGridLayout& layout, const char* name, const QString& text, int points);

    QPushButton* m_close;
};
