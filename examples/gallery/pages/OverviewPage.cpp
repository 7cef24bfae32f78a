// SPDX-License-Identifier: MIT
// Copyright (c) 2026 the KestWidgets authors

#include "OverviewPage.h"

#include "KestCircleProgressBar.h"
#include "KestColor.h"
#include "KestComboBox.h"
#include "KestIPAddressEdit.h"
#include "KestMessageBox.h"
#include "KestStageProgressBar.h"
#include "KestSwitchButton.h"

#include <QtGui/QPainter>
#include <QtGui/QPixmap>
#include <QtWidgets/QFrame>
#include <QtWidgets/QGridLayout>
#include <QtWidgets/QLabel>
#include <QtWidgets/QPushButton>
#include <QtWidgets/QVBoxLayout>

namespace {

using Page = OverviewPage;

const int Columns = 3;
const int LogoSize = 56; // pixels, unscaled as all here
const int SwatchSize = 15; // pixels
const QSize PaletteSize(5, 4); // swatches

// In the pixels of the screen, of which there may be several to one of Qt's.
QPixmap createPicture(const QLabel *label, const QSize &size)
{
    const qreal ratio = label->devicePixelRatioF();
    QPixmap picture(size * ratio);
    picture.setDevicePixelRatio(ratio);
    picture.fill(Qt::transparent);
    return picture;
}

void drawLogo(QLabel *label, double rate)
{
    const QSize size = QSize(LogoSize, LogoSize) * rate;
    QPixmap picture = createPicture(label, size);
    const QPixmap logo(QStringLiteral(":/kest/Resources/image/kest_320.png"));
    QPainter(&picture).drawPixmap(
        0, 0, logo.scaled(picture.size(), Qt::KeepAspectRatio, Qt::SmoothTransformation));
    label->setPixmap(picture);
}

void drawPalette(QLabel *label, double rate)
{
    const int side = qRound(SwatchSize * rate);
    QPixmap picture = createPicture(label, PaletteSize * side);
    QPainter painter(&picture);
    for (int i = 0; i < PaletteSize.width() * PaletteSize.height(); ++i) {
        painter.fillRect(i % PaletteSize.width() * side, i / PaletteSize.width() * side, side, side,
                         KestColor::generateBackgroundColor(i));
    }
    painter.end();
    label->setPixmap(picture);
}

QWidget *createMessageSample()
{
    auto *ask = new QPushButton(Page::tr("Ask me"));
    QObject::connect(ask, &QPushButton::clicked, ask, [ask] {
        KestMessageBox::question(ask->window(), Page::tr("Question"),
                                 Page::tr("Is this what you were looking for?"));
    });
    return ask;
}

QWidget *createStageSample()
{
    auto *bar = new KestStageProgressBar;
    bar->setStyleSheet(
        QStringLiteral("KestStageProgressBar { background-color: #A9B2BD; padding: 0px 2px }"));
    bar->setStageCount(4);
    bar->setValue(55);
    return bar;
}

QWidget *createCircleSample()
{
    auto *bar = new KestCircleProgressBar;
    bar->setMinimumSize(96, 96);
    bar->setValue(72);
    return bar;
}

QWidget *createSwitchSample()
{
    auto *button = new KestSwitchButton;
    button->setAccessibleName(Page::tr("A switch"));
    button->setFixedSize(48, 24);
    button->setChecked(true);
    // The handle asks for no repaint on its way.
    QObject::connect(button, &KestSwitchButton::toggled, button, qOverload<>(&QWidget::update));
    return button;
}

QWidget *createComboSample()
{
    auto *box = new KestComboBox;
    box->setAccessibleName(Page::tr("A combo box"));
    box->addItems({ Page::tr("Apple"), Page::tr("Banana"), Page::tr("Cherry") });
    return box;
}

QWidget *createAddressSample()
{
    auto *edit = new KestIPAddressEdit;
    edit->setAccessibleName(Page::tr("An address"));
    edit->setIPAddress(QStringLiteral("192.168.0.1"));
    return edit;
}

QWidget *createSheetSample()
{
    return new QLabel(QStringLiteral("<pre>QPushButton {\n  color: navy;\n}</pre>"));
}

} // namespace

OverviewPage::OverviewPage(QWidget *parent)
    : QWidget(parent), m_logo(new QLabel), m_palette(new QLabel)
{
    setWindowTitle(tr("Overview"));
    auto *text = new QLabel(tr(
        "<h2>KestWidgets</h2>"
        "<p>A C++ library of Qt widgets for desktop applications that want one look and one kind "
        "of window. This window is one of its own: title bar, navigation bar, pages, status bar. "
        "The source of each page is beside it.</p>"));
    text->setWordWrap(true);

    auto *cards = new QGridLayout;
    cards->setSpacing(12);
    QWidget *const all[] = {
        createCard(m_logo, tr("Window"), tr("Frameless, with bars")),
        createCard(createMessageSample(), tr("Message box"), tr("Asks and tells")),
        createCard(createStageSample(), tr("Stage progress bar"), tr("Progress in steps")),
        createCard(createCircleSample(), tr("Circle progress bar"), tr("Progress as a ring")),
        createCard(createSwitchSample(), tr("Switch button"), tr("On or off, at once")),
        createCard(createComboSample(), tr("Combo box"), tr("Filled as it opens")),
        createCard(createAddressSample(), tr("IP address edit"), tr("IPv4, always valid")),
        createCard(m_palette, tr("Colors"), tr("Grounds and texts")),
        createCard(createSheetSample(), tr("Style sheet"), tr("Themes to edit live")),
    };
    for (int i = 0; i < int(std::size(all)); ++i) {
        cards->addWidget(all[i], i / Columns, i % Columns);
        cards->setColumnStretch(i % Columns, 1);
    }

    auto *layout = new QVBoxLayout(this);
    layout->setContentsMargins(20, 8, 20, 16);
    layout->setSpacing(8);
    layout->addWidget(text);
    layout->addLayout(cards, 1);
}

void OverviewPage::setScale(double rate)
{
    drawLogo(m_logo, rate);
    drawPalette(m_palette, rate);
}

QWidget *OverviewPage::createCard(QWidget *sample, const QString &title, const QString &text)
{
    auto *card = new QFrame;
    card->setObjectName(QStringLiteral("card"));
    card->setStyleSheet(
        QStringLiteral("#card { background: white; border: 1px solid #D9D9D9; border-radius: 6px }"
                       "QLabel { color: #24292F; background: transparent }"));
    auto *open = new QPushButton(title);
    connect(open, &QPushButton::clicked, this, [this, title] { Q_EMIT pageWanted(title); });
    auto *caption = new QLabel(text);
    caption->setAlignment(Qt::AlignCenter);

    auto *middle = new QGridLayout;
    if (sample->sizePolicy().expandingDirections() & Qt::Horizontal)
        middle->addWidget(sample, 0, 0, Qt::AlignVCenter);
    else
        middle->addWidget(sample, 0, 0, Qt::AlignCenter);
    auto *layout = new QVBoxLayout(card);
    layout->setContentsMargins(8, 8, 8, 8);
    layout->setSpacing(6);
    layout->addLayout(middle, 1);
    layout->addWidget(caption);
    layout->addWidget(open);
    return card;
}
