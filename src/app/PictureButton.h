#pragma once

#include <QToolButton>

/// A small button that shows a picture of the icon family and tells its purpose in its tool-tip.
/// Works by mouse, Space and Enter.
class PictureButton : public QToolButton {
    Q_OBJECT

public:
    PictureButton(const QString& name, const QString& icon, const QString& toolTip,
                  QWidget* parent = nullptr);

    /// Puts a word beside the picture, where the picture alone cannot say it.
    void ShowText(const QString& text);

protected:
    void keyPressEvent(QKeyEvent* event) override;
};
