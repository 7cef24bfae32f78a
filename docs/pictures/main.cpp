// SPDX-License-Identifier: MIT
// Copyright (c) 2026 the KestWidgets authors

// kest-pictures FOLDER: draws a picture of each class into FOLDER. kest-pictures --names lists
// them.

#include <KestApplication.h>
#include <KestCircleProgressBar.h>
#include <KestColor.h>
#include <KestComboBox.h>
#include <KestDialog.h>
#include <KestIPAddressEdit.h>
#include <KestLoadingDialog.h>
#include <KestMessageBox.h>
#include <KestNavigationBar.h>
#include <KestStageProgressBar.h>
#include <KestStyleSheet.h>
#include <KestSwitchButton.h>
#include <KestTitleBar.h>
#include <KestWindow.h>

#include <QAction>
#include <QtCore/QDir>
#include <QtCore/QTimer>
#include <QtCore/QUrl>
#include <QtGui/QCursor>
#include <QtGui/QGuiApplication>
#include <QtGui/QPainter>
#include <QtGui/QScreen>
#include <QtWidgets/QCheckBox>
#include <QtWidgets/QDialogButtonBox>
#include <QtWidgets/QFormLayout>
#include <QtWidgets/QGridLayout>
#include <QtWidgets/QLabel>
#include <QtWidgets/QLineEdit>
#include <QtWidgets/QMenu>
#include <QtWidgets/QMenuBar>
#include <QtWidgets/QProgressBar>
#include <QtWidgets/QPushButton>
#include <QtWidgets/QRadioButton>
#include <QtWidgets/QSlider>
#include <QtWidgets/QSpinBox>
#include <QtWidgets/QStatusBar>
#include <QtWidgets/QTextEdit>

#include <cstdio>

namespace {

const int SettleMs = 250; // long enough for layouts, animations and the window manager
const int Gap = 16; // pixels between widgets of one picture
const QSize ActionIconSize(16, 16); // pixels
const QSize WindowIconSize(20, 20); // pixels

QIcon icon(const char *name)
{
    return QIcon(QStringLiteral(":/KestWidgets/Resources/") + QLatin1String(name));
}

QIcon logo(const char *name)
{
    return QIcon(QStringLiteral(":/kest/Resources/image/") + QLatin1String(name));
}

void settle()
{
    QEventLoop loop;
    QTimer::singleShot(SettleMs, &loop, &QEventLoop::quit);
    loop.exec();
}

QPixmap pictureOf(QWidget *widget)
{
    widget->show();
    settle();
    return widget->grab();
}

// A page on white, as most are.
class Page : public QWidget
{
public:
    Page() { setPalette(QColor(Qt::white)); }
};

// Side by side or one below the other.
QPixmap joined(const QList<QPixmap> &parts, Qt::Orientation orientation)
{
    const bool across = orientation == Qt::Horizontal;
    QSize size;
    for (const QPixmap &part : parts) {
        const QSize own = part.size() / part.devicePixelRatio();
        const int gap = size.isEmpty() ? 0 : Gap;
        size = across
            ? QSize(qMax(0, size.width()) + gap + own.width(), qMax(size.height(), own.height()))
            : QSize(qMax(size.width(), own.width()), qMax(0, size.height()) + gap + own.height());
    }
    const qreal ratio = parts.constFirst().devicePixelRatio();
    QPixmap whole(size * ratio);
    whole.setDevicePixelRatio(ratio);
    whole.fill(Qt::transparent);
    QPainter painter(&whole);
    int at = 0;
    for (const QPixmap &part : parts) {
        const QSize own = part.size() / part.devicePixelRatio();
        painter.drawPixmap(across ? QPoint(at, 0) : QPoint(0, at), part);
        at += Gap + (across ? own.width() : own.height());
    }
    return whole;
}

void setUpTitleBar(KestWindow *window)
{
    window->setWindowIcon(logo("kest.png"));
    window->titleBar()->setIconSize(WindowIconSize);
    window->titleBar()->setActionIconSize(ActionIconSize);
    window->titleBar()->updateWindowIcon();
}

void addMenus(KestWindow *window)
{
    for (const char *title : { "&File", "&Edit", "&Help" })
        window->menuBar()->addMenu(QLatin1String(title));
}

QAction *addChecked(KestNavigationBar *bar, const QString &text)
{
    QAction *const action = bar->addAction(text, KestNavigationBar::Center);
    action->setCheckable(true);
    action->setChecked(true);
    return action;
}

void fillNavigationBar(KestNavigationBar *bar)
{
    bar->addLogo(logo("logo_kest.png"), KestNavigationBar::Left);
    bar->addSeparator(KestNavigationBar::Left);
    addChecked(bar, QStringLiteral("Reports"));
    bar->addAction(QStringLiteral("Customers"), KestNavigationBar::Center);
    bar->addAction(QStringLiteral("Stock"), KestNavigationBar::Center);
    bar->addHelp(QUrl(QStringLiteral("https://example.org")), icon("help-light.png"),
                 KestNavigationBar::Right)
        ->setObjectName(QStringLiteral("help"));
    bar->addSeparator(KestNavigationBar::Right);
    bar->addUser(icon("people-light.png"), QStringLiteral("Ann"), KestNavigationBar::Right);
}

QPixmap window()
{
    KestWindow window;
    auto *text = new QTextEdit;
    text->setFrameShape(QFrame::NoFrame);
    text->setPlainText(QStringLiteral("Central widget"));
    text->setWindowTitle(QStringLiteral("Reports"));
    window.setCentralWidget(text);
    setUpTitleBar(&window);
    addMenus(&window);
    fillNavigationBar(window.navigationBar());
    window.statusBar()->showMessage(QStringLiteral("Ready"));
    window.resize(640, 320);
    return pictureOf(&window);
}

QPixmap firstWindow()
{
    KestWindow window;
    auto *text = new QTextEdit;
    window.setCentralWidget(text);
    window.setWindowTitle(QStringLiteral("Notes"));
    auto *file = new QMenu(QStringLiteral("&File"), &window);
    window.menuBar()->addMenu(file);
    window.navigationBar()->addAction(QStringLiteral("Count"), KestNavigationBar::Left);
    window.statusBar()->showMessage(QStringLiteral("Ready"));
    text->setPlainText(QStringLiteral("Milk\nBread\n"));
    window.resize(480, 320);
    return pictureOf(&window);
}

QPixmap titleBar()
{
    QList<QPixmap> bars;
    KestWindow withMenus;
    withMenus.setCentralWidget(new QLineEdit); // has the focus
    withMenus.setWindowTitle(QStringLiteral("Reports"));
    setUpTitleBar(&withMenus);
    addMenus(&withMenus);
    withMenus.titleBar()->addAction(new QAction(icon("search-light.png"), QString(), &withMenus));
    withMenus.resize(640, 120);
    pictureOf(&withMenus);
    bars.append(withMenus.titleBar()->grab());

    KestWindow plain;
    plain.setCentralWidget(new QLineEdit);
    setUpTitleBar(&plain);
    plain.setWindowTitle(QStringLiteral("Without a menu bar"));
    plain.resize(640, 120);
    pictureOf(&plain);
    bars.append(plain.titleBar()->grab());
    return joined(bars, Qt::Vertical);
}

QPixmap navigationBar()
{
    KestWindow window;
    window.setCentralWidget(new QLineEdit); // has the focus
    fillNavigationBar(window.navigationBar());
    window.resize(656, 200);
    pictureOf(&window);
    return window.navigationBar()->grab();
}

QWidget *form(QWidget *parent)
{
    auto *form = new QWidget(parent);
    auto *layout = new QFormLayout(form);
    layout->addRow(QStringLiteral("Name"), new QLineEdit(QStringLiteral("Ann")));
    auto *port = new QSpinBox;
    port->setRange(0, 65535);
    port->setValue(8080);
    layout->addRow(QStringLiteral("Port"), port);
    auto *box = new QCheckBox(QStringLiteral("Connect at start"));
    box->setChecked(true);
    layout->addRow(QString(), box);
    auto *progress = new QProgressBar;
    progress->setValue(60);
    layout->addRow(QStringLiteral("Sent"), progress);
    auto *buttons = new QDialogButtonBox(QDialogButtonBox::Ok | QDialogButtonBox::Cancel);
    layout->addRow(buttons);
    return form;
}

QPixmap application()
{
    QList<QPixmap> looks;
    const QString sheet = qApp->styleSheet();
    for (const QString &look : { QString(), sheet }) {
        qApp->setStyleSheet(look);
        const QScopedPointer<QWidget> widget(form(nullptr));
        widget->resize(280, widget->sizeHint().height());
        looks.append(pictureOf(widget.data()));
    }
    return joined(looks, Qt::Horizontal);
}

QPixmap styleSheet()
{
    QList<QPixmap> scales;
    const QString sheet = qApp->styleSheet();
    for (const float rate : { 1.0F, 1.5F }) {
        qApp->setStyleSheet(KestStyleSheet::scaleSheet(sheet, rate));
        const QScopedPointer<QWidget> widget(form(nullptr));
        widget->resize(280, widget->sizeHint().height());
        scales.append(pictureOf(widget.data()));
    }
    qApp->setStyleSheet(sheet);
    return joined(scales, Qt::Horizontal);
}

QPixmap colors()
{
    const int Columns = 10;
    QWidget palette;
    auto *grid = new QGridLayout(&palette);
    grid->setSpacing(4);
    grid->setContentsMargins(0, 0, 0, 0);
    for (int i = 0; i < 20; ++i) {
        const QColor background = KestColor::generateBackgroundColor(i);
        auto *label = new QLabel(QString::number(i));
        label->setAlignment(Qt::AlignCenter);
        label->setFixedSize(56, 40);
        label->setStyleSheet(
            QStringLiteral("background: %1; color: %2; border-radius: 3px")
                .arg(background.name(), KestColor::generateForegroundColor(background).name()));
        grid->addWidget(label, i / Columns, i % Columns);
    }
    palette.setAttribute(Qt::WA_TranslucentBackground);
    return pictureOf(&palette);
}

QPixmap messageBox()
{
    KestMessageBox question(
        KestMessageBox::Question, QStringLiteral("Close"), QStringLiteral("Save the changes?"),
        KestMessageBox::Save | KestMessageBox::Discard | KestMessageBox::Cancel);
    KestMessageBox critical(KestMessageBox::Critical, QStringLiteral("Connection"),
                            QStringLiteral("The connection was lost."),
                            KestMessageBox::Retry | KestMessageBox::Close);
    QList<QPixmap> boxes;
    for (KestMessageBox *box : { &question, &critical }) {
        box->setModal(false);
        box->setWindowIcon(logo("kest.png"));
        box->titleBar()->setIconSize(WindowIconSize);
        box->titleBar()->updateWindowIcon();
        boxes.append(pictureOf(box));
    }
    return joined(boxes, Qt::Horizontal);
}

QPixmap dialog()
{
    KestDialog dialog;
    dialog.setCentralWidget(form(&dialog));
    dialog.setWindowTitle(QStringLiteral("New connection"));
    dialog.setWindowIcon(logo("kest.png"));
    dialog.titleBar()->setIconSize(WindowIconSize);
    dialog.titleBar()->updateWindowIcon();
    dialog.resize(360, dialog.sizeHint().height());
    return pictureOf(&dialog);
}

QPixmap loadingDialog()
{
    KestWindow window;
    window.setCentralWidget(form(nullptr));
    window.setWindowTitle(QStringLiteral("New connection"));
    setUpTitleBar(&window);
    window.resize(360, 250);
    pictureOf(&window);
    KestLoadingDialog overlay(&window);
    return pictureOf(&overlay).isNull() ? QPixmap() : window.grab();
}

QPixmap circleProgressBar()
{
    Page row;
    auto *layout = new QHBoxLayout(&row);
    layout->setSpacing(Gap);
    for (const int value : { 0, 24, 75, 100 }) {
        auto *ring = new KestCircleProgressBar;
        ring->setValue(value);
        layout->addWidget(ring);
    }
    auto *counted = new KestCircleProgressBar;
    counted->setRange(0, 12);
    counted->setValue(7);
    counted->setFormat(QStringLiteral("%v of %m"));
    counted->setBarWidth(6);
    counted->setPenCapStyle(Qt::RoundCap);
    counted->setBarBrush(QColor(0x28, 0x8A, 0x33));
    layout->addWidget(counted);
    auto *busy = new KestCircleProgressBar;
    busy->setRange(0, 0);
    layout->addWidget(busy);
    return pictureOf(&row);
}

KestStageProgressBar *steps(int value, Qt::Orientation orientation, bool captions)
{
    auto *bar = new KestStageProgressBar;
    bar->setStyleSheet(QStringLiteral("KestStageProgressBar { background-color: #A9B2BD }"));
    bar->setOrientation(orientation);
    bar->setTextVisible(captions);
    const char *const names[] = { "Cart", "Ship", "Pay", "Check", "Done" };
    for (int i = 0; i < 5; ++i)
        bar->setText(i, QLatin1String(names[i]));
    bar->setRange(0, 100);
    bar->setValue(value);
    return bar;
}

QPixmap stageProgressBar()
{
    Page page;
    auto *grid = new QGridLayout(&page);
    grid->setHorizontalSpacing(2 * Gap);
    grid->addWidget(steps(0, Qt::Horizontal, false), 0, 0);
    grid->addWidget(steps(50, Qt::Horizontal, true), 1, 0);
    grid->addWidget(steps(100, Qt::Horizontal, true), 2, 0);
    KestStageProgressBar *const disabled = steps(50, Qt::Horizontal, true);
    disabled->setEnabled(false);
    grid->addWidget(disabled, 3, 0);
    grid->addWidget(steps(40, Qt::Vertical, false), 0, 1, 4, 1);
    grid->addWidget(steps(40, Qt::Vertical, true), 0, 2, 4, 1);
    grid->setColumnStretch(0, 1);
    page.resize(560, 240);
    return pictureOf(&page);
}

QPixmap switchButton()
{
    Page page;
    auto *grid = new QGridLayout(&page);
    grid->setSpacing(Gap);
    for (int i = 0; i < 4; ++i) {
        auto *button = new KestSwitchButton;
        button->setFixedSize(48, 26);
        button->setChecked(i % 2 == 1);
        button->setEnabled(i < 2);
        grid->addWidget(button, 0, 2 * i);
        const char *const names[] = { "Off", "On", "Off, disabled", "On, disabled" };
        grid->addWidget(new QLabel(QLatin1String(names[i])), 0, 2 * i + 1);
    }
    pictureOf(&page);
    page.repaint();
    return page.grab();
}

QPixmap comboBox()
{
    Page page;
    auto *layout = new QHBoxLayout(&page);
    layout->setSpacing(Gap);
    for (int i = 0; i < 3; ++i) {
        auto *box = new KestComboBox;
        box->addItems({ QStringLiteral("COM1"), QStringLiteral("COM3") });
        box->setEditable(i == 1);
        box->setEnabled(i < 2);
        box->setFixedWidth(150);
        layout->addWidget(box);
    }
    return pictureOf(&page);
}

QPixmap ipAddressEdit()
{
    Page page;
    auto *form = new QFormLayout(&page);
    const char *const names[] = { "Address", "Empty", "Read-only", "Disabled" };
    for (int i = 0; i < 4; ++i) {
        auto *edit = new KestIPAddressEdit;
        edit->setIPAddress(i == 1 ? QString() : QStringLiteral("192.168.0.%1").arg(i + 1));
        edit->setReadOnly(i == 2);
        edit->setEnabled(i != 3);
        edit->setFixedWidth(180);
        form->addRow(QLatin1String(names[i]), edit);
    }
    return pictureOf(&page);
}

struct Picture
{
    const char *name;
    QPixmap (*draw)();
};

const Picture Pictures[] = {
    { "firstwindow", firstWindow },
    { "kestapplication", application },
    { "kestcircleprogressbar", circleProgressBar },
    { "kestcolor", colors },
    { "kestcombobox", comboBox },
    { "kestdialog", dialog },
    { "kestipaddressedit", ipAddressEdit },
    { "kestloadingdialog", loadingDialog },
    { "kestmessagebox", messageBox },
    { "kestnavigationbar", navigationBar },
    { "keststageprogressbar", stageProgressBar },
    { "keststylesheet", styleSheet },
    { "kestswitchbutton", switchButton },
    { "kesttitlebar", titleBar },
    { "kestwindow", window },
};

} // namespace

int main(int argc, char *argv[])
{
    if (argc == 2 && QLatin1String(argv[1]) == QLatin1String("--names")) {
        for (const Picture &picture : Pictures)
            std::printf("%s\n", picture.name);
        return 0;
    }
    if (argc != 2)
        return 1;
    QCoreApplication::setAttribute(Qt::AA_UseHighDpiPixmaps);
    KestApplication app(argc, argv);
    // Where no window comes to lie below it.
    QCursor::setPos(QGuiApplication::primaryScreen()->geometry().bottomRight());
    const QDir folder(QString::fromLocal8Bit(argv[1]));
    for (const Picture &picture : Pictures) {
        const QString file = folder.filePath(QLatin1String(picture.name) + QStringLiteral(".png"));
        if (!picture.draw().save(file)) {
            std::fprintf(stderr, "kest-pictures: cannot write %s\n", qPrintable(file));
            return 1;
        }
    }
    return 0;
}
