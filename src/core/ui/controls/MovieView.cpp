#include "core/ui/controls/MovieView.h"

#include "core/ui/Prompts.h"

#include <QHBoxLayout>
#include <QPainter>
#include <QPushButton>
#include <QSvgRenderer>
#include <QTimer>

namespace tally {

namespace {

/// The movies' own sky, so that nothing flashes when a movie comes up.
constexpr QRgb SkyTop = 0xff1f5f8b;
constexpr int FramesPerSecond = 20;
constexpr int TitleMargin = 28;

} // namespace

MovieView::MovieView(QWidget* parent) : QWidget(parent), foot_(new QHBoxLayout)
{
    auto* rows = new QVBoxLayout(this);
    rows->setContentsMargins(24, 24, 24, 24);
    rows->addStretch();
    rows->addLayout(foot_);
    foot_->setSpacing(16);
    foot_->addStretch();
}

MovieView::~MovieView() = default;

void MovieView::AddButton(const QString& name, const QString& caption, const QString& command,
                          const QString& argument)
{
    auto* button = new QPushButton(caption, this);
    button->setObjectName(name);
    button->setAutoDefault(true);
    button->setMinimumWidth(110);
    foot_->addWidget(button);
    if (!defaultButton_) {
        defaultButton_ = button;
        button->setDefault(true);
    }
    connect(button, &QPushButton::clicked, this,
            [this, command, argument] { Q_EMIT FSCommand(command, argument); });
}

void MovieView::SetMovie(const QByteArray& movie)
{
    movie_ = movie;
    renderer_.reset();
    if (isVisible())
        QTimer::singleShot(0, this, &MovieView::Play);
}

void MovieView::Play()
{
    if (renderer_ || movie_.isEmpty() || !isVisible())
        return;
    auto renderer = std::make_unique<QSvgRenderer>(movie_);
    renderer->setFramesPerSecond(FramesPerSecond);
    connect(renderer.get(), &QSvgRenderer::repaintNeeded, this, qOverload<>(&QWidget::update));
    renderer_ = std::move(renderer);
    update();
}

void MovieView::paintEvent(QPaintEvent*)
{
    QPainter painter(this);
    painter.fillRect(rect(), QColor(SkyTop));
    // The window stands at once; fetching the large letters of the title from the disk can wait for the next
    // turn.
    if (!painted_) {
        painted_ = true;
        QTimer::singleShot(0, this, qOverload<>(&QWidget::update));
        return;
    }
    if (renderer_) {
        // The renderer itself would pull the movie out of shape.
        QRectF whole({}, renderer_->viewBoxF().size().scaled(size(), Qt::KeepAspectRatioByExpanding));
        whole.moveCenter(QRectF(rect()).center());
        renderer_->render(&painter, whole);
    }

    QFont title = font();
    title.setPointSizeF(title.pointSizeF() * 2.2);
    title.setBold(true);
    painter.setFont(title);
    painter.setPen(Qt::white);
    painter.drawText(rect().adjusted(TitleMargin, TitleMargin, -TitleMargin, 0), Qt::AlignLeft | Qt::AlignTop,
                     ApplicationTitle);
}

void MovieView::showEvent(QShowEvent*)
{
    if (defaultButton_)
        defaultButton_->setFocus();
    QTimer::singleShot(0, this, &MovieView::Play);
}

void MovieView::hideEvent(QHideEvent*)
{
    // A hidden movie must not keep the machine busy: the splash stays loaded all day.
    renderer_.reset();
}

} // namespace tally
