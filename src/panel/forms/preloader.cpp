#include "panel/forms/preloader.h"

#include "panel/forms/picture.h"
#include "panel/forms/program_data.h"
#include "panel/widgets/fit_screen.h"
#include "platform/text/qt_text.h"

#include <QCloseEvent>
#include <QGuiApplication>
#include <QHBoxLayout>
#include <QLabel>
#include <QScreen>
#include <QVBoxLayout>
#include <QWindow>

#include <chrono>

namespace tarvex::panel
{

namespace
{
using namespace std::chrono_literals;

constexpr std::chrono::milliseconds kPeriod = 2000ms;
constexpr QSize kPictureSize(480, 240);
constexpr int kMargin = 16;

QLabel* NamedLabel(const char* name, QWidget* parent)
{
    auto* label = new QLabel(parent);
    label->setObjectName(QString::fromLatin1(name));
    return label;
}

void Enlarge(QLabel* label, double factor)
{
    QFont font = label->font();
    font.setPointSizeF(font.pointSizeF() * factor);
    label->setFont(font);
}
} // namespace

Preloader::Preloader(Handlers& handlers, std::function<void()> next)
    : QWidget(nullptr, Qt::SplashScreen | Qt::FramelessWindowHint),
      handlers_(handlers),
      next_(std::move(next)),
      timer_(new QTimer(this))
{
    setObjectName("preloader");
    setAccessibleName(Literal(kProgramTitle)); // it has no title to be announced by
    timer_->setObjectName("Timer1");
    timer_->setTimerType(Qt::PreciseTimer);
    timer_->setInterval(kPeriod);
    connect(timer_, &QTimer::timeout, this, [this] { handlers_.Run([this] { OnTimer(); }); });
    Build();
    Load();
}

void Preloader::Build()
{
    const QSize room(FreeSize(*this).width(), FreeSize(*this).height() / 2);
    const QSize size = kPictureSize.scaled(kPictureSize.boundedTo(room), Qt::KeepAspectRatio);
    auto* picture = new PictureBox(kSurveyPicture, size, this);
    picture->setObjectName("Image1");
    auto* description = NamedLabel("Label2", this);
    Enlarge(description, 2);
    auto* version = NamedLabel("Label1", this);
    version->setAccessibleDescription("Version");

    auto* texts = new QHBoxLayout;
    texts->setContentsMargins(kMargin, kMargin, kMargin, kMargin);
    texts->addWidget(description, 1, Qt::AlignBaseline);
    texts->addWidget(version, 0, Qt::AlignBaseline);

    auto* layout = new QVBoxLayout(this);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->setSpacing(0);
    layout->setSizeConstraint(QLayout::SetFixedSize);
    layout->addWidget(picture, 0, Qt::AlignHCenter);
    layout->addLayout(texts);
}

void Preloader::Load()
{
    timer_->start();
    findChild<QLabel*>("Label1")->setText(QString("%1.%2").arg(kMajorVersion).arg(kMinorVersion));
    auto* description = findChild<QLabel*>("Label2");
    description->setText(Literal(kFileDescription));
    while (sizeHint().width() > FreeSize(*this).width() && description->font().pointSizeF() > 1)
        Enlarge(description, 0.9);
}

void Preloader::OnTimer()
{
    if (timer_->intervalAsDuration() != kPeriod) return;
    const auto next = std::move(next_);
    Unload();
    next();
}

void Preloader::Unload()
{
    timer_->stop();
    hide();
    deleteLater();
}

// No window manager places a splash alike; it is put in the middle once its size is settled.
void Preloader::showEvent(QShowEvent* event)
{
    adjustSize();
    if (const QScreen* screen = QGuiApplication::primaryScreen())
        move(screen->availableGeometry().center() - rect().center());
    // The desktop would get the program's name for a title that is empty.
    windowHandle()->setTitle(QStringLiteral(" "));
    QWidget::showEvent(event);
}

void Preloader::closeEvent(QCloseEvent* event)
{
    event->ignore();
}

} // namespace tarvex::panel
