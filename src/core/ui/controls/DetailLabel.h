#pragma once

#include <QLabel>

namespace tally {

/// Shows a detail of a row that is only read. It keeps its size whatever it shows: what is too long for its
/// room ends in dots, and the tool tip tells the whole.
class DetailLabel : public QLabel
{
    Q_OBJECT
    /// For how many lines it has room.
    Q_PROPERTY(int lines READ Lines WRITE SetLines)

public:
    explicit DetailLabel(QWidget* parent = nullptr);

    int Lines() const { return lines_; }
    void SetLines(int lines);

    QSize sizeHint() const override { return minimumSizeHint(); }
    QSize minimumSizeHint() const override;

protected:
    bool event(QEvent* event) override;
    void paintEvent(QPaintEvent* event) override;

private:
    /// The text as far as there is room for it.
    QString Fitting() const;

    int lines_ = 1;
};

} // namespace tally
