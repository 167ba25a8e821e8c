// The title window (frmTitle): the program's picture and name. A click anywhere on it, or its
// timer when a network was named on the command line, opens the main window.
#pragma once

#include <QWidget>
#include <functional>

class QLabel;
class QTimer;

namespace karvane::shell {

inline constexpr const char* TitleCaption = "KARVANE - Version 3.9.3a";

// TitlePic: a mine drawn in three dimensions, with its shafts, levels, a fan and the air.
class TitlePicture : public QWidget {
    Q_OBJECT
public:
    explicit TitlePicture(QWidget* parent = nullptr);
    QSize sizeHint() const override { return {600, 300}; }

protected:
    void paintEvent(QPaintEvent* event) override;
};

class TitleWindow : public QWidget {
    Q_OBJECT
public:
    // With a network pending, the title goes on by itself after 1.5 seconds.
    explicit TitleWindow(bool networkPending, QWidget* parent = nullptr);
    // StartMain: called once, by the click or the timer.
    std::function<void()> OnStart;
    void Start();

protected:
    void mousePressEvent(QMouseEvent* event) override;
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    QTimer* timer_;
    bool started_ = false;
};

} // namespace karvane::shell
