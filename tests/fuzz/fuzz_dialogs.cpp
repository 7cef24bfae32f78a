// SPDX-License-Identifier: MIT
// Copyright (c) 2026 the KestWidgets authors

// Message boxes and overlays: all setters and buttons, shown and run in their own loops, which a
// queued step ends, and deleted in the midst of it.

#include "Fuzzer.h"
#include "KestLoadingDialog.h"
#include "KestMessageBox.h"

#include <QtCore/QPointer>
#include <QtCore/QTimer>
#include <QtGui/QKeyEvent>
#include <QtGui/QMovie>
#include <QtGui/QPixmap>
#include <QtWidgets/QApplication>
#include <QtWidgets/QPushButton>

namespace {

void sendKey(QWidget *widget, int key)
{
    QKeyEvent press(QEvent::KeyPress, key, Qt::NoModifier);
    QCoreApplication::sendEvent(widget, &press);
}

class MessageBoxTrial
{
public:
    explicit MessageBoxTrial(FuzzInput &input)
        : m_input(input),
          m_box(input.flag() ? new KestMessageBox
                             : new KestMessageBox(KestMessageBox::Icon(input.below(6)),
                                                  input.text(9), input.text(40), buttons(input)))
    { }
    ~MessageBoxTrial() { delete m_box; }

    void run()
    {
        while (m_box && !m_input.atEnd()) {
            step();
            if (m_box)
                check();
        }
    }

private:
    static KestMessageBox::StandardButtons buttons(FuzzInput &input)
    {
        return KestMessageBox::StandardButtons(input.integer());
    }
    static KestMessageBox::StandardButton standardButton(FuzzInput &input)
    {
        const int bit = input.below(19);
        return KestMessageBox::StandardButton(bit < 18 ? 0x400 << bit : 0);
    }
    QAbstractButton *anyButton()
    {
        const QList<QPushButton *> all = m_box->findChildren<QPushButton *>();
        const int index = m_input.below(all.size() + 1);
        return index < all.size() ? all.at(index) : nullptr;
    }

    void step();
    void exec();
    void end(int how);
    void check();

    FuzzInput &m_input;
    QPointer<KestMessageBox> m_box;
    bool m_running = false;
};

void MessageBoxTrial::step()
{
    switch (m_input.below(17)) {
    case 0:
        m_box->setText(m_input.text(60));
        break;
    case 1:
        m_box->setTextFormat(Qt::TextFormat(m_input.below(4)));
        break;
    case 2:
        m_box->setTextInteractionFlags(Qt::TextInteractionFlags(m_input.below(64)));
        break;
    case 3:
        m_box->setIcon(KestMessageBox::Icon(m_input.below(8)));
        break;
    case 4: {
        QPixmap pixmap(m_input.below(200), 1 + m_input.below(200));
        if (!pixmap.isNull())
            pixmap.fill(Qt::blue);
        m_box->setIconPixmap(pixmap);
        break;
    }
    case 5:
        m_box->setStandardButtons(buttons(m_input));
        break;
    case 6:
        if (m_box->findChildren<QPushButton *>().size() < 30)
            m_box->addButton(m_input.text(8), KestMessageBox::ButtonRole(m_input.below(12) - 1));
        break;
    case 7:
        m_box->addButton(standardButton(m_input));
        break;
    case 8: {
        auto *const button = new QPushButton(m_input.text(4));
        const auto role = KestMessageBox::ButtonRole(m_input.below(12) - 1);
        m_box->addButton(button, role);
        if (m_box && !button->parent())
            delete button; // refused
        break;
    }
    case 9: {
        const QPointer<QAbstractButton> button(anyButton());
        m_box->removeButton(button);
        if (button && m_input.flag())
            delete button;
        break;
    }
    case 10:
        delete anyButton();
        break;
    case 11:
        m_box->setDefaultButton(standardButton(m_input));
        m_box->defaultButton();
        break;
    case 12:
        m_box->detectEscapeButton();
        m_box->updateSize();
        FUZZ_CHECK(m_box->layoutMinimumWidth() >= 0, QString());
        break;
    case 13:
        m_box->setVisible(m_input.flag());
        break;
    case 14: {
        const int keys[] = { Qt::Key_Escape, Qt::Key_Return, Qt::Key_Enter, Qt::Key_Tab,
                             Qt::Key_C,      Qt::Key_Left,   Qt::Key_F4,    Qt::Key_Y };
        sendKey(m_box, keys[m_input.below(8)]);
        break;
    }
    case 15:
        exec();
        break;
    default:
        settle();
        if (m_box)
            m_box->grab();
        break;
    }
}

// What ends a box that runs.
void MessageBoxTrial::end(int how)
{
    switch (how) {
    case 0:
        if (QAbstractButton *const button = anyButton()) {
            button->click();
            break;
        }
        m_box->reject();
        break;
    case 1:
        m_box->close();
        break;
    case 2:
        delete m_box;
        break;
    case 3:
        step();
        if (m_box)
            m_box->accept();
        break;
    case 4:
        m_box->hide();
        break;
    default:
        sendKey(m_box, Qt::Key_Escape);
        if (m_box)
            m_box->reject(); // where no button is the escape
        break;
    }
}

void MessageBoxTrial::exec()
{
    if (m_running)
        return;
    m_running = true;
    const int how = m_input.below(6);
    QTimer::singleShot(0, m_box, [this, how] { end(how); });
    // Whatever that came to.
    QTimer::singleShot(0, m_box, [this] {
        settle();
        if (m_box)
            m_box->done(0);
    });
    m_box->exec();
    m_running = false;
}

void MessageBoxTrial::check()
{
    const auto given = m_box->standardButtons();
    FUZZ_CHECK((int(given) & ~0x0ffffc00) == 0, QString::number(int(given)));
    for (QPushButton *button : m_box->findChildren<QPushButton *>()) {
        const auto standard = m_box->standardButton(button);
        FUZZ_CHECK(standard == KestMessageBox::NoButton || given.testFlag(standard),
                   QString::number(standard));
    }
}

class OverlayTrial
{
public:
    explicit OverlayTrial(FuzzInput &input)
        : m_input(input), m_window(new QWidget), m_overlay(new KestLoadingDialog(m_window))
    {
        m_window->resize(300, 200);
        m_window->show();
    }
    ~OverlayTrial()
    {
        delete m_overlay;
        delete m_window;
    }

    void run()
    {
        while (m_overlay && m_window && !m_input.atEnd()) {
            step();
            if (!m_overlay || !m_window || !m_overlay->isVisible())
                continue;
            FUZZ_CHECK(m_overlay->parentWidget() != m_window
                           || m_overlay->geometry() == m_window->rect(),
                       QString::number(m_overlay->width()));
        }
    }

private:
    void step();
    void exec();
    void end(int how);

    FuzzInput &m_input;
    QPointer<QWidget> m_window;
    QPointer<KestLoadingDialog> m_overlay;
    bool m_running = false;
};

void OverlayTrial::step()
{
    switch (m_input.below(12)) {
    case 0:
        m_overlay->setCancelEnable(m_input.flag());
        break;
    case 1:
        m_overlay->setMovie(m_input.flag() ? new QMovie(m_input.flag() ? m_window : nullptr)
                                           : nullptr);
        break;
    case 2:
        m_overlay->setVisible(m_input.flag());
        break;
    case 3:
        m_window->resize(1 + m_input.below(400), 1 + m_input.below(300));
        break;
    case 4:
        m_window->setVisible(m_input.flag());
        break;
    case 5:
        sendKey(m_overlay, m_input.flag() ? Qt::Key_Escape : Qt::Key_Tab);
        break;
    case 6:
        if (m_input.flag())
            m_overlay->done();
        else
            m_overlay->cancel();
        break;
    case 7:
    case 8:
        exec();
        break;
    case 9:
        m_overlay->close();
        break;
    case 10:
        m_window->setWindowState(Qt::WindowStates(m_input.below(16)));
        break;
    default:
        settle();
        if (m_window)
            m_window->grab();
        break;
    }
}

// What ends an overlay that runs.
void OverlayTrial::end(int how)
{
    switch (how) {
    case 0:
        m_overlay->done();
        break;
    case 1:
        m_overlay->cancel();
        break;
    case 2:
        delete m_overlay;
        break;
    case 3:
        delete m_window;
        break;
    case 4:
        m_overlay->hide();
        break;
    case 5:
        m_window->close();
        break;
    default:
        step();
        if (m_overlay)
            m_overlay->done();
        break;
    }
}

void OverlayTrial::exec()
{
    if (m_running)
        return;
    m_running = true;
    const int how = m_input.below(7);
    QTimer::singleShot(0, m_overlay, [this, how] { end(how); });
    if (how != 0 && how != 6)
        QTimer::singleShot(0, m_overlay, [this] { m_overlay->cancel(); }); // whatever that came to
    const KestLoadingDialog::Result result = m_overlay->exec();
    FUZZ_CHECK(result == KestLoadingDialog::Canceled || how == 0 || how == 6, QString::number(how));
    FUZZ_CHECK(result == KestLoadingDialog::Done || how != 0, QString::number(how));
    m_running = false;
}

} // namespace

void fuzz(FuzzInput &input)
{
    if (input.below(3) > 0)
        MessageBoxTrial(input).run();
    else
        OverlayTrial(input).run();
}
