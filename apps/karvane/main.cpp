// The desktop program: the title window first; a click, or the timer when a network was named
// on the command line, opens the main window.
#include <QApplication>
#include <QComboBox>
#include <QGuiApplication>
#include <QMouseEvent>
#include <QPixmap>
#include <QPushButton>
#include <QScreen>
#include <QStringList>
#include <QStyleFactory>
#include <QTimer>
#include <QWheelEvent>
#include <cstdio>
#include <memory>

#include "forms/file_commands.h"
#include "qt/icons.h"
#include "qt/qt_text.h"
#include "shell/main_window.h"
#include "shell/qt_user_interface.h"
#include "shell/title_window.h"

namespace {

// Options for making pictures of the program without anyone at the screen:
//   --screenshot FILE   the screen is saved to FILE once the steps have run, and the program ends
//   --title-shot FILE   the screen is saved to FILE while the title window stands
//   --do STEPS          steps separated by commas: a menu entry or tool button by name
//                       (mnuExecute, Tool24, ...), combo:NAME=INDEX (a choice from a list of
//                       the tool bar), click:XxY (the left button on the current view),
//                       button:WINDOW/NAME (a button of one of the program's windows),
//                       wheel:N (notches of the wheel on the current view),
//                       drag:X1xY1-X2xY2 (a drag of the left button on the current view),
//                       hold:X1xY1-X2xY2 (the same drag, the button still held),
//                       grab:NAME=FILE (a picture of one part of the window), wait:MS, or
//                       runshot:FILE (the screen saved while the next run stands at 70 per cent)
struct PictureRun {
    QString Screenshot;
    QString TitleShot; // --title-shot FILE: the screen while the title window stands
    QStringList Steps;
};

void SaveScreen(const QString& file) {
    if (QScreen* screen = QGuiApplication::primaryScreen()) screen->grabWindow(0).save(file);
}

void RunSteps(karvane::shell::MainWindow& main, QStringList steps, const QString& screenshot) {
    if (steps.isEmpty()) {
        if (!screenshot.isEmpty()) {
            SaveScreen(screenshot);
            std::printf("%s\n", main.windowTitle().toLocal8Bit().constData());
            std::fflush(stdout);
            std::_Exit(0);
        }
        return;
    }
    const QString step = steps.takeFirst().trimmed();
    int wait = 300;
    if (step.startsWith(QStringLiteral("wait:"))) wait = step.mid(5).toInt();
    // The next step is due before this one runs: a step may open a window that waits for the user.
    QTimer::singleShot(wait, &main, [&main, steps, screenshot] { RunSteps(main, steps, screenshot); });
    if (step.startsWith(QStringLiteral("wait:"))) {
        // Only the pause before the next step.
    } else if (step.startsWith(QStringLiteral("runshot:"))) {
        const QString file = step.mid(8);
        main.runWindows().ProgressObserver = [&main, file](int percent) {
            if (percent < 70) return;
            SaveScreen(file);
            main.runWindows().ProgressObserver = nullptr;
        };
    } else if (step.startsWith(QStringLiteral("grab:"))) {
        // grab:NAME=FILE, a picture of one part of the window, twice its size.
        const QString name = step.mid(5).section(QLatin1Char('='), 0, 0);
        if (auto* widget = main.findChild<QWidget*>(name)) {
            const QPixmap picture = widget->grab();
            picture.scaled(picture.size() * 2, Qt::IgnoreAspectRatio, Qt::SmoothTransformation)
                .save(step.section(QLatin1Char('='), 1));
        }
    } else if (step.startsWith(QStringLiteral("click:"))) {
        // click:XxY with the left button on the current view, X and Y in pixels.
        const QStringList xy = step.mid(6).split(QLatin1Char('x'));
        if (auto* view = main.view(main.windowTable().CurWin); view && xy.size() == 2) {
            const QPointF at(xy[0].toDouble(), xy[1].toDouble());
            for (QEvent::Type type : {QEvent::MouseButtonPress, QEvent::MouseButtonRelease}) {
                QMouseEvent event(type, at, view->mapToGlobal(at), Qt::LeftButton,
                                  type == QEvent::MouseButtonPress ? Qt::LeftButton : Qt::NoButton, Qt::NoModifier);
                QApplication::sendEvent(view, &event);
            }
        }
    } else if (step.startsWith(QStringLiteral("drag:")) || step.startsWith(QStringLiteral("hold:"))) {
        // drag:X1xY1-X2xY2 with the left button, in ten moves; hold: without the release.
        const QStringList ends = step.mid(5).split(QLatin1Char('-'));
        auto* view = main.view(main.windowTable().CurWin);
        if (view && ends.size() == 2) {
            const QStringList a = ends[0].split(QLatin1Char('x')), b = ends[1].split(QLatin1Char('x'));
            const QPointF from(a.value(0).toDouble(), a.value(1).toDouble());
            const QPointF to(b.value(0).toDouble(), b.value(1).toDouble());
            auto send = [view](QEvent::Type type, QPointF at, Qt::MouseButtons held) {
                QMouseEvent event(type, at, view->mapToGlobal(at),
                                  type == QEvent::MouseMove ? Qt::NoButton : Qt::LeftButton, held, Qt::NoModifier);
                QApplication::sendEvent(view, &event);
            };
            send(QEvent::MouseButtonPress, from, Qt::LeftButton);
            for (int i = 1; i <= 10; ++i) send(QEvent::MouseMove, from + (to - from) * (i / 10.0), Qt::LeftButton);
            if (step.startsWith(QStringLiteral("drag:"))) send(QEvent::MouseButtonRelease, to, Qt::NoButton);
        }
    } else if (step.startsWith(QStringLiteral("wheel:"))) {
        // wheel:N notches on the current view, in for positive N.
        if (auto* view = main.view(main.windowTable().CurWin)) {
            const QPointF at(view->width() / 2.0, view->height() / 2.0);
            QWheelEvent event(at, view->mapToGlobal(at), QPoint(), QPoint(0, 120 * step.mid(6).toInt()), Qt::NoButton,
                              Qt::NoModifier, Qt::NoScrollPhase, false);
            QApplication::sendEvent(view, &event);
        }
    } else if (step.startsWith(QStringLiteral("button:"))) {
        // button:WINDOW/NAME, a push button of one of the program's windows.
        const QString window = step.mid(7).section(QLatin1Char('/'), 0, 0);
        if (auto* owner = main.findChild<QWidget*>(window))
            if (auto* button = owner->findChild<QPushButton*>(step.section(QLatin1Char('/'), 1))) button->click();
    } else if (step.startsWith(QStringLiteral("combo:"))) {
        const QString name = step.mid(6).section(QLatin1Char('='), 0, 0);
        const int index = step.section(QLatin1Char('='), 1).toInt();
        if (auto* combo = main.findChild<QComboBox*>(name)) {
            combo->setCurrentIndex(index);
            Q_EMIT combo->activated(index);
        }
    } else if (!main.Trigger(step)) {
        std::fprintf(stderr, "karvane: no enabled command %s\n", step.toLocal8Bit().constData());
    }
}

} // namespace

int main(int argc, char** argv) {
    QApplication app(argc, argv);
    QApplication::setStyle(QStyleFactory::create(QStringLiteral("Fusion")));
    QApplication::setOrganizationName(QStringLiteral("Karvane"));
    QApplication::setApplicationName(QStringLiteral("Karvane"));
    QApplication::setWindowIcon(karvane::shell::ProgramIcon());

    PictureRun pictures;
    std::string argument;
    const QStringList args = QCoreApplication::arguments();
    for (qsizetype i = 1; i < args.size(); ++i) {
        if (args[i] == QStringLiteral("--screenshot") && i + 1 < args.size()) {
            pictures.Screenshot = args[++i];
        } else if (args[i] == QStringLiteral("--title-shot") && i + 1 < args.size()) {
            pictures.TitleShot = args[++i];
        } else if (args[i] == QStringLiteral("--do") && i + 1 < args.size()) {
            pictures.Steps = args[++i].split(QLatin1Char(','), Qt::SkipEmptyParts);
        } else if (argument.empty()) {
            argument = karvane::shell::ToPath(args[i]);
        }
    }

    karvane::shell::QtUserInterface ui;
    const std::string commandFile = karvane::forms::CommandLineFile(argument);
    const bool unattended = !pictures.Screenshot.isEmpty();
    auto title = std::make_unique<karvane::shell::TitleWindow>(!commandFile.empty() || unattended);
    std::unique_ptr<karvane::shell::MainWindow> main;
    title->OnStart = [&] {
        // StartMain: the busy pointer while the main window builds itself.
        QApplication::setOverrideCursor(Qt::WaitCursor);
        title->hide();
        main = std::make_unique<karvane::shell::MainWindow>(ui);
        main->show();
        QCoreApplication::processEvents();
        main->StartUp(commandFile);
        QApplication::restoreOverrideCursor();
        title.release()->deleteLater();
        if (unattended)
            QTimer::singleShot(800, main.get(),
                               [&main, &pictures] { RunSteps(*main, pictures.Steps, pictures.Screenshot); });
    };
    title->show();
    if (!pictures.TitleShot.isEmpty()) QTimer::singleShot(700, [&pictures] { SaveScreen(pictures.TitleShot); });
    const int code = app.exec();
    main.reset();
    return code;
}
