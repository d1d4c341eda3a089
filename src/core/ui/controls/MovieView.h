#pragma once

#include <QWidget>

#include <memory>

class QHBoxLayout;
class QPushButton;
class QSvgRenderer;

namespace tally {

/// Plays a drawn movie (SVG with moving parts) over and over, with a title over its upper left and buttons
/// over its foot. The buttons speak for the movie: each raises FSCommand with its command and argument.
class MovieView : public QWidget
{
    Q_OBJECT

public:
    explicit MovieView(QWidget* parent = nullptr);
    ~MovieView() override;

    /// The first button is the default: it has the focus when the movie is shown, and Enter presses it.
    void AddButton(const QString& name, const QString& caption, const QString& command,
                   const QString& argument);
    /// Plays the drawing while the view is visible. It is made out after the next painting, so that a slow
    /// one delays no window; one that can't be made out leaves the plain background.
    void SetMovie(const QByteArray& movie);
    bool IsPlaying() const { return renderer_ != nullptr; }

Q_SIGNALS:
    void FSCommand(const QString& command, const QString& argument);

protected:
    void paintEvent(QPaintEvent* event) override;
    void showEvent(QShowEvent* event) override;
    void hideEvent(QHideEvent* event) override;

private:
    void Play();

    QHBoxLayout* foot_;
    QPushButton* defaultButton_ = nullptr;
    QByteArray movie_;
    std::unique_ptr<QSvgRenderer> renderer_;
    bool painted_ = false;
};

} // namespace tally
