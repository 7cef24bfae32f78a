// SPDX-License-Identifier: MIT
// Copyright (c) 2026 the KestWidgets authors

// A program with the library's widgets, for the screen reader of tst_accessibility.py. What is to
// change without a user has a button of its own, which the reader presses; what happened then is
// told by a label.

#include "KestCircleProgressBar.h"
#include "KestComboBox.h"
#include "KestIPAddressEdit.h"
#include "KestLoadingDialog.h"
#include "KestMessageBox.h"
#include "KestNavigationBar.h"
#include "KestStageProgressBar.h"
#include "KestSwitchButton.h"
#include "KestTitleBar.h"
#include "KestWindow.h"

#include <QAction>
#include <QtGui/QDesktopServices>
#include <QtGui/QKeyEvent>
#include <QtWidgets/QApplication>
#include <QtWidgets/QFormLayout>
#include <QtWidgets/QHBoxLayout>
#include <QtWidgets/QLabel>
#include <QtWidgets/QMainWindow>
#include <QtWidgets/QMenuBar>
#include <QtWidgets/QMessageBox>
#include <QtWidgets/QPushButton>

namespace {

QIcon icon()
{
    QPixmap pixmap(24, 24);
    pixmap.fill(Qt::blue);
    return QIcon(pixmap);
}

class Host : public QObject
{
    Q_OBJECT

public:
    Host();
    ~Host() override { QDesktopServices::unsetUrlHandler(QStringLiteral("help")); }

    void show() { m_window.show(); }

public Q_SLOTS:
    void openUrl(const QUrl &url) { tell(url.toString()); }

private:
    void fillBars();
    void fillForm(QWidget *page);
    void offerChanges(QFormLayout *form);
    void offerEntries(QFormLayout *form);
    void offerAddresses(QFormLayout *form);
    void offerWindows(QFormLayout *form);
    void tell(const QString &what);
    void focus(QWidget *widget);

    template <class Function>
    void offer(QFormLayout *form, const char *what, const Function &change)
    {
        auto *button = new QPushButton(QString::fromLatin1(what));
        button->setFocusPolicy(Qt::NoFocus);
        connect(button, &QPushButton::clicked, this, change);
        form->addRow(button);
    }

    KestWindow m_window;
    QMainWindow m_plain;
    KestNavigationBar *m_bar = nullptr;
    QAction *m_open = nullptr;
    QAction *m_pin = nullptr;
    QAction *m_late = nullptr;
    QLabel *m_told = nullptr;
    KestCircleProgressBar *m_circle = nullptr;
    KestStageProgressBar *m_stages = nullptr;
    KestSwitchButton *m_switch = nullptr;
    KestIPAddressEdit *m_address = nullptr;
    KestComboBox *m_combo = nullptr;
    KestLoadingDialog *m_overlay = nullptr;
};

Host::Host()
{
    fillBars();
    auto *page = new QWidget;
    fillForm(page);
    m_window.setCentralWidget(page);
    m_window.setWindowTitle(QStringLiteral("Widgets"));
    m_window.resize(700, 640);
    QDesktopServices::setUrlHandler(QStringLiteral("help"), this, "openUrl");
}

void Host::fillBars()
{
    KestTitleBar *const titleBar = m_window.titleBar();
    titleBar->menuBar()->addMenu(QStringLiteral("&File"))->addAction(QStringLiteral("&New"));
    auto *search = new QAction(icon(), QStringLiteral("Search"), titleBar);
    connect(search, &QAction::triggered, this, [this] { tell(QStringLiteral("searched")); });
    titleBar->addAction(search);

    m_bar = m_window.navigationBar();
    m_open = m_bar->addAction(icon(), QStringLiteral("&Open"), KestNavigationBar::Left);
    connect(m_open, &QAction::triggered, this, [this] { tell(QStringLiteral("opened")); });
    m_pin = m_bar->addAction(icon(), QStringLiteral("Pin"), KestNavigationBar::Left);
    m_pin->setCheckable(true);
    m_pin->setToolTip(QStringLiteral("Keeps it on top"));
    m_bar->addSeparator(KestNavigationBar::Left)->setParent(m_bar);
    QAction *const logo = m_bar->addLogo(icon(), KestNavigationBar::Center);
    logo->setText(QStringLiteral("Start page"));
    QAction *const user = m_bar->addUser(icon(), QStringLiteral("Ada"), KestNavigationBar::Right);
    connect(user, &QAction::triggered, this, [this] { tell(QStringLiteral("met Ada")); });
    m_bar->addHelp(QUrl(QStringLiteral("help:contents")), icon(), KestNavigationBar::Right);
}

void Host::fillForm(QWidget *page)
{
    auto *form = new QFormLayout(page);
    m_told = new QLabel(QStringLiteral("nothing yet"));
    form->addRow(m_told);
    m_circle = new KestCircleProgressBar;
    m_circle->setRange(0, 200);
    m_circle->setValue(50);
    m_circle->setFixedSize(60, 60);
    m_circle->setAccessibleName(QStringLiteral("Download"));
    form->addRow(m_circle);
    m_stages = new KestStageProgressBar;
    m_stages->setRange(0, 3);
    m_stages->setValue(1);
    form->addRow(QStringLiteral("&Order"), m_stages);
    m_switch = new KestSwitchButton;
    m_switch->setAccessibleName(QStringLiteral("Night mode"));
    connect(m_switch, &KestSwitchButton::toggled, this,
            [this](bool on) { tell(on ? QStringLiteral("night") : QStringLiteral("day")); });
    form->addRow(m_switch);
    m_address = new KestIPAddressEdit;
    m_address->setIPAddress(QStringLiteral("192.168.0.1"));
    form->addRow(QStringLiteral("Ser&ver"), m_address);
    m_combo = new KestComboBox;
    m_combo->addItems({ QStringLiteral("Red"), QStringLiteral("Green") });
    form->addRow(QStringLiteral("&Colour"), m_combo);
    auto *changes = new QHBoxLayout;
    form->addRow(changes);
    for (const auto offerSome :
         { &Host::offerChanges, &Host::offerEntries, &Host::offerAddresses, &Host::offerWindows }) {
        auto *column = new QFormLayout;
        changes->addLayout(column);
        (this->*offerSome)(column);
    }
}

// Announced in any case, also where it was told before.
void Host::tell(const QString &what)
{
    m_told->clear();
    m_told->setText(what);
}

void Host::focus(QWidget *widget)
{
    widget->clearFocus();
    widget->setFocus();
}

void Host::offerChanges(QFormLayout *form)
{
    offer(form, "Advance the ring", [this] { m_circle->setValue(m_circle->value() + 10); });
    offer(form, "Advance the order", [this] { m_stages->setValue(m_stages->value() + 1); });
    offer(form, "Turn the lights out", [this] { m_switch->setChecked(true); });
    offer(form, "Lock the switch", [this] { m_switch->setEnabled(false); });
    offer(form, "Free the switch", [this] { m_switch->setEnabled(true); });
    offer(form, "Choose green", [this] { m_combo->setCurrentIndex(1); });
    offer(form, "Go to the switch", [this] { focus(m_switch); });
    offer(form, "Go to the address", [this] { focus(m_address); });
    offer(form, "Go to the title bar", [this] { focus(m_window.titleBar()); });
}

void Host::offerEntries(QFormLayout *form)
{
    offer(form, "Take another name", [this] { m_open->setText(QStringLiteral("Save")); });
    offer(form, "Take the old name", [this] { m_open->setText(QStringLiteral("&Open")); });
    offer(form, "Forbid it", [this] { m_open->setEnabled(false); });
    offer(form, "Allow it", [this] { m_open->setEnabled(true); });
    offer(form, "Pin it", [this] { m_pin->setChecked(true); });
    offer(form, "Add an entry", [this] {
        m_late = m_bar->addAction(icon(), QStringLiteral("Late"), KestNavigationBar::Right);
    });
    offer(form, "Remove the entry", [this] {
        m_bar->removeAction(m_late);
        tell(QStringLiteral("removed"));
    });
}

void Host::offerAddresses(QFormLayout *form)
{
    const auto moveTo = [this](const QString &address) {
        m_address->setIPAddress(address);
        tell(QStringLiteral("moved"));
    };
    const auto fix = [this](bool fixed) {
        m_address->setReadOnly(fixed);
        tell(fixed ? QStringLiteral("fixed") : QStringLiteral("freed"));
    };
    offer(form, "Move the server", [moveTo] { moveTo(QStringLiteral("192.16.0.7")); });
    offer(form, "Move the server home", [moveTo] { moveTo(QStringLiteral("192.168.0.1")); });
    offer(form, "Fix the address", [fix] { fix(true); });
    offer(form, "Free the address", [fix] { fix(false); });
    offer(form, "Select with the keyboard", [this] {
        QKeyEvent shiftRight(QEvent::KeyPress, Qt::Key_Right, Qt::ShiftModifier);
        QCoreApplication::sendEvent(m_address, &shiftRight);
        tell(QStringLiteral("selected"));
    });
}

void Host::offerWindows(QFormLayout *form)
{
    offer(form, "Ask", [this] {
        auto *box = new KestMessageBox(KestMessageBox::Question, QStringLiteral("Delete"),
                                       QStringLiteral("Delete it for good?"),
                                       KestMessageBox::Yes | KestMessageBox::No, &m_window);
        box->setAttribute(Qt::WA_DeleteOnClose);
        box->setDefaultButton(KestMessageBox::No);
        connect(box, &KestMessageBox::finished, this, [this, box] {
            const auto answer = box->standardButton(box->clickedButton());
            tell(answer == KestMessageBox::Yes ? QStringLiteral("answered yes")
                                               : QStringLiteral("answered no"));
        });
        box->open();
    });
    // Qt's own, to compare with.
    offer(form, "Ask plainly", [this] {
        auto *box = new QMessageBox(QMessageBox::Question, QStringLiteral("Plain"),
                                    QStringLiteral("Delete it for good?"),
                                    QMessageBox::Yes | QMessageBox::No, &m_window);
        box->setAttribute(Qt::WA_DeleteOnClose);
        box->open();
    });
    offer(form, "Show a plain window", [this] {
        m_plain.setWindowTitle(QStringLiteral("Plain window"));
        m_plain.show();
    });
    offer(form, "Hide the plain window", [this] { m_plain.hide(); });
    offer(form, "Be busy", [this] {
        m_overlay = new KestLoadingDialog(&m_window);
        m_overlay->show();
    });
    offer(form, "Be done", [this] { delete m_overlay; });
}

} // namespace

int main(int argc, char **argv)
{
    QApplication app(argc, argv);
    QApplication::setApplicationName(QStringLiteral("accessibility-host"));
    Host host;
    host.show();
    return QApplication::exec();
}

#include "host.moc"
