// SPDX-License-Identifier: MIT
// Copyright (c) 2026 the KestWidgets authors

// Windows and dialogs with synthesised input, changes of state, bars and central widgets, and a
// host that deletes them when it hears of something.

#include "Fuzzer.h"
#include "KestDialog.h"
#include "KestNavigationBar.h"
#include "KestTitleBar.h"
#include "KestWindow.h"

#include <QAction>
#include <QtCore/QPointer>
#include <QtGui/QIcon>
#include <QtGui/QImage>
#include <QtGui/QKeyEvent>
#include <QtGui/QMouseEvent>
#include <QtGui/QPixmap>
#include <QtWidgets/QApplication>
#include <QtWidgets/QLabel>
#include <QtWidgets/QLineEdit>
#include <QtWidgets/QMenuBar>
#include <QtWidgets/QStatusBar>

#include <algorithm>

namespace {

const int LongestSide = 700; // pixels: a window is painted whole

// One of the widgets in the window, the window itself included.
QWidget *part(QWidget *window, FuzzInput &input)
{
    const QList<QWidget *> parts = window->findChildren<QWidget *>();
    const int index = input.below(parts.size() + 1);
    return index < parts.size() ? parts.at(index) : window;
}

// What comes from the mouse arrives at the widget below it, as from QApplication.
class Pointer
{
public:
    void send(QWidget *window, FuzzInput &input)
    {
        const QEvent::Type types[] = { QEvent::MouseButtonPress, QEvent::MouseMove,
                                       QEvent::MouseButtonRelease, QEvent::MouseButtonDblClick };
        const QEvent::Type type = types[input.below(4)];
        const Qt::MouseButton button = input.below(6) ? Qt::LeftButton : Qt::RightButton;
        const QPoint at = position(window, input);
        if (type != QEvent::MouseMove)
            m_buttons = type == QEvent::MouseButtonRelease ? Qt::NoButton : button;
        if (m_receiver.isNull() || type == QEvent::MouseButtonPress
            || (m_receiver != window && !window->isAncestorOf(m_receiver))) {
            QWidget *const child = window->childAt(at);
            m_receiver = child ? child : window;
        }
        QWidget *const receiver = m_receiver;
        // Qt asks for the screen of the window that a menu pops up from.
        if (qobject_cast<QMenuBar *>(receiver) && !window->windowHandle())
            return;
        QMouseEvent event(type, receiver->mapFrom(window, at), window->mapToGlobal(at),
                          type == QEvent::MouseMove ? Qt::NoButton : button, m_buttons,
                          input.below(6) ? Qt::NoModifier : Qt::ShiftModifier);
        if (type == QEvent::MouseButtonRelease)
            m_receiver = nullptr;
        QCoreApplication::sendEvent(receiver, &event);
    }

private:
    // Often on the frame, where most is decided by single pixels.
    static QPoint position(const QWidget *window, FuzzInput &input)
    {
        const auto coordinate = [&input](int side) {
            switch (input.below(4)) {
            case 0:
                return input.below(16);
            case 1:
                return side - input.below(16);
            case 2:
                return input.below(std::max(1, side));
            default:
                return input.below(512) - 128;
            }
        };
        const int x = coordinate(window->width());
        return { x, coordinate(window->height()) };
    }

    QPointer<QWidget> m_receiver;
    Qt::MouseButtons m_buttons;
};

// Drives a window or dialog. The host deletes it, or takes a step, once, at one of the events that
// tell it of something.
class Trial : public QObject
{
public:
    Trial(QWidget *window, FuzzInput &input)
        : m_input(input), m_window(window), m_left(input.byte()), m_deletes(input.flag())
    {
        connect(window, &QWidget::windowTitleChanged, this, [this] { interrupt(); });
        connect(window, &QWidget::windowIconChanged, this, [this] { interrupt(); });
        if (auto *const dialog = qobject_cast<QDialog *>(window))
            connect(dialog, &QDialog::finished, this, [this] { interrupt(); });
        window->installEventFilter(this);
    }
    ~Trial() override
    {
        m_left = -1;
        delete m_window;
        delete m_former;
    }

    void run()
    {
        while (m_window && !m_input.atEnd()) {
            step();
            if (!m_window)
                break;
            check();
        }
    }

    bool eventFilter(QObject *, QEvent *event) override
    {
        // Qt goes on with the window behind the others.
        if (event->type() == QEvent::Close || event->type() == QEvent::WindowStateChange)
            interrupt(false);
        return false;
    }

private:
    void step();
    void replace(KestWindow *window);
    void replace(KestDialog *dialog);
    void changeWidget();
    void check();
    QWidget *anyWidget();

    void interrupt(bool mayDelete = true)
    {
        if (m_quiet || m_left < 0 || (m_deletes && !mayDelete) || m_left-- > 0)
            return;
        if (m_deletes) {
            delete m_window;
            return;
        }
        if (!m_window)
            return;
        m_inside = true;
        step();
        m_inside = false;
    }

    FuzzInput &m_input;
    QPointer<QWidget> m_window;
    QPointer<QWidget> m_former; // a move bar of the host's own
    Pointer m_pointer;
    int m_left;
    bool m_deletes;
    bool m_quiet = false;
    bool m_inside = false; // an event
};

QWidget *Trial::anyWidget()
{
    switch (m_input.below(6)) {
    case 0:
        return nullptr;
    case 1:
        return new QDialog;
    case 2:
        return new KestDialog;
    case 3: {
        auto *const label = new QLabel(m_input.text(8));
        label->setWindowTitle(m_input.text(8));
        return label;
    }
    case 4: {
        auto *const widget = new QWidget;
        widget->setFixedSize(m_input.below(300), m_input.below(300));
        new QLineEdit(widget);
        return widget;
    }
    default:
        return new QLineEdit(m_input.text(8));
    }
}

void Trial::step()
{
    auto *const window = qobject_cast<KestWindow *>(m_window);
    auto *const dialog = qobject_cast<KestDialog *>(m_window);
    switch (m_input.below(16)) {
    case 0:
    case 1:
    case 2:
    case 3:
    case 4:
        m_pointer.send(m_window, m_input);
        break;
    case 5: {
        const int keys[] = { Qt::Key_Tab,   Qt::Key_Backtab, Qt::Key_Escape, Qt::Key_Return,
                             Qt::Key_Space, Qt::Key_Alt,     Qt::Key_Left,   Qt::Key_A };
        const QPointer<QWidget> receiver(m_window->focusWidget() ? m_window->focusWidget()
                                                                 : m_window.data());
        const int key = keys[m_input.below(8)];
        QKeyEvent press(QEvent::KeyPress, key, Qt::NoModifier);
        QCoreApplication::sendEvent(receiver, &press);
        QKeyEvent release(QEvent::KeyRelease, key, Qt::NoModifier);
        if (receiver)
            QCoreApplication::sendEvent(receiver, &release);
        break;
    }
    case 6:
        m_window->resize(m_input.below(LongestSide), m_input.below(LongestSide));
        break;
    case 7:
        m_window->setWindowState(Qt::WindowStates(m_input.below(16)));
        break;
    case 8:
        m_window->setVisible(m_input.below(4) > 0);
        break;
    case 9:
    case 10:
        if (window)
            replace(window);
        else
            replace(dialog);
        break;
    case 11:
    case 12:
        changeWidget();
        break;
    case 13:
        if (m_input.flag()) {
            m_window->close();
        } else if (dialog) {
            dialog->done(m_input.integer());
        } else {
            window->ChangeObjectSizeAndFontSize(window, m_input.below(64) / 16.0, 1.0);
            window->saveObjectSize(window);
        }
        break;
    default:
        // What is to be deleted later is not deleted in the midst of an event.
        if (!m_inside)
            settle();
        if (m_window) {
            QImage image(m_window->size().expandedTo(QSize(1, 1)),
                         QImage::Format_ARGB32_Premultiplied);
            image.fill(0);
            m_window->render(&image);
        }
        break;
    }
}

// A bar is null where the window has died while it was made.
void Trial::replace(KestWindow *window)
{
    switch (m_input.below(12)) {
    case 0:
        window->setTitleBar(m_input.flag() ? new KestTitleBar(window) : nullptr);
        break;
    case 1:
        window->setTitleBar(new KestTitleBar);
        break;
    case 2:
        window->setNavigationBar(m_input.flag() ? new KestNavigationBar : nullptr);
        break;
    case 3:
        window->setStatusBar(m_input.flag() ? new QStatusBar : nullptr);
        break;
    case 4:
        window->setMenuBar(m_input.flag() ? new QMenuBar : nullptr);
        break;
    case 5:
    case 6:
        window->setCentralWidget(anyWidget());
        break;
    case 7:
        if (KestNavigationBar *const bar = window->navigationBar())
            bar->addAction(m_input.text(4), KestNavigationBar::Center);
        break;
    case 8:
        if (KestTitleBar *const bar = window->titleBar())
            bar->addAction(new QAction(m_input.text(4), bar));
        break;
    case 9:
        if (QMenuBar *const bar = window->menuBar())
            bar->addMenu(m_input.text(4));
        break;
    case 10:
        if (QStatusBar *const bar = window->statusBar())
            bar->showMessage(m_input.text(4));
        break;
    default:
        if (!m_former)
            m_former = new QWidget;
        if (m_input.flag())
            window->addMoveBar(m_former);
        else
            window->removeMoveBar(m_input.flag() ? m_former.data() : nullptr);
        break;
    }
}

void Trial::replace(KestDialog *dialog)
{
    switch (m_input.below(6)) {
    case 0:
        dialog->setTitleBar(m_input.flag() ? new KestTitleBar(dialog) : nullptr);
        break;
    case 1:
        dialog->setTitleBar(new KestTitleBar);
        break;
    case 2:
    case 3:
        dialog->setCentralWidget(anyWidget());
        break;
    case 4:
        if (auto *const inner = qobject_cast<QDialog *>(dialog->centralWidget()))
            inner->done(m_input.below(4));
        break;
    default:
        if (KestTitleBar *const bar = dialog->titleBar())
            bar->addAction(new QAction(m_input.text(4), bar));
        break;
    }
}

void Trial::changeWidget()
{
    QWidget *const widget = part(m_window, m_input);
    switch (m_input.below(8)) {
    case 0:
        // The parts of Qt's own widgets are those widgets' alone.
        if (widget->parentWidget() == m_window || qobject_cast<KestTitleBar *>(widget->parent()))
            delete widget;
        break;
    case 1:
        // The window takes its central widget's title, but Qt goes on with that widget.
        m_quiet = widget != m_window;
        widget->setWindowTitle(m_input.text(8));
        m_quiet = false;
        break;
    case 2: {
        QPixmap pixmap(1 + m_input.below(40), 1 + m_input.below(40));
        pixmap.fill(Qt::red);
        widget->setWindowIcon(pixmap);
        break;
    }
    case 3:
        widget->setFocus();
        break;
    case 4:
        if (widget != m_window)
            widget->setVisible(m_input.flag());
        break;
    case 5:
        widget->setLayoutDirection(m_input.flag() ? Qt::RightToLeft : Qt::LeftToRight);
        break;
    case 6: {
        const int width = m_input.below(LongestSide);
        widget->setMinimumSize(width, m_input.below(LongestSide));
        break;
    }
    default:
        m_window->setWindowFlag(m_input.flag() ? Qt::WindowMaximizeButtonHint
                                               : Qt::WindowStaysOnTopHint,
                                m_input.flag());
        break;
    }
}

void Trial::check()
{
    if (auto *const window = qobject_cast<KestWindow *>(m_window)) {
        QWidget *const central = window->centralWidget();
        FUZZ_CHECK(!central || window->isAncestorOf(central), QString());
        return;
    }
    QWidget *const central = static_cast<KestDialog *>(m_window.data())->centralWidget();
    FUZZ_CHECK(!central || m_window->isAncestorOf(central), QString());
}

} // namespace

void fuzz(FuzzInput &input)
{
    QWidget *window = nullptr;
    if (input.flag())
        window = new KestWindow;
    else
        window = new KestDialog;
    Trial(window, input).run();
}
