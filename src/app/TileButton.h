#pragma once

#include <QAbstractButton>

/// A large button of the console: picture, caption and, in small print, its key. Works by mouse,
/// Space and Enter.
class TileButton : public QAbstractButton {
    Q_OBJECT

public:
    /// `key` is empty for a command without a key of its own.
    TileButton(const QString& name, const QString& icon, const QString& caption,
               const QString& toolTip, QString key, QWidget* parent = nullptr);

    QSize sizeHint() const override;
    QSize minimumSizeHint() const override { return sizeHint(); }

protected:
    void paintEvent(QPaintEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;

private:
    QFont keyFont() const;

    QString m_key;
};
