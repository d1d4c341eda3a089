#pragma once

#include <QAbstractButton>
#include <QPixmap>

namespace tally {

/// A button that is a picture. Enter and Space press it; a frame shows the focus.
class ImageButton : public QAbstractButton
{
    Q_OBJECT

public:
    explicit ImageButton(QWidget* parent = nullptr);

    void SetPicture(const QPixmap& picture);
    const QPixmap& Picture() const { return picture_; }
    QSize sizeHint() const override;

protected:
    void paintEvent(QPaintEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;

private:
    QPixmap picture_;
};

} // namespace tally
