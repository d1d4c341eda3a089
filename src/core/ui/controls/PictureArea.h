#pragma once

#include <QMdiArea>
#include <QPixmap>

namespace tally {

/// The area of the child windows with a picture behind them, scaled to cover it, and as in the evening where
/// the palette is dark. Without a picture it shows the palette's window colour. When it becomes smaller, the
/// child windows stay in sight.
class PictureArea : public QMdiArea
{
    Q_OBJECT

public:
    explicit PictureArea(QWidget* parent = nullptr);

    /// A null pixmap means no picture.
    void SetPicture(const QPixmap& picture);
    const QPixmap& Picture() const { return picture_; }

protected:
    void changeEvent(QEvent* event) override;
    void paintEvent(QPaintEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;

private:
    const QPixmap& Scaled();

    QPixmap picture_;
    QSize sizeBefore_;
    QPixmap scaled_; ///< the picture at the size of the last painting
};

} // namespace tally
