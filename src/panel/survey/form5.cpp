#include "panel/survey/form5.h"

#include "panel/survey/survey_grid.h"
#include "panel/widgets/drawing.h"

#include <QCloseEvent>
#include <QHBoxLayout>
#include <QLabel>
#include <QPainter>
#include <QPixmap>
#include <QPushButton>
#include <QVBoxLayout>

// A library's resources have to be asked for, or the linker leaves them out.
static void LoadDatabasePictures()
{
    Q_INIT_RESOURCE(database_pictures);
}

namespace tarvex::panel
{

namespace
{

constexpr const char* kInstruction =
    "Per trasferire i dati al blocco selezionare il numero nella casella relativa";
constexpr int kPicture = 32; // pixels

QIcon ClosePicture(qreal scale)
{
    LoadDatabasePictures();
    Drawing drawing;
    drawing.Load(":/tarvex/close.svg");
    QPixmap pixmap(QSize(kPicture, kPicture) * scale);
    pixmap.fill(Qt::transparent);
    QPainter painter(&pixmap);
    drawing.Render(painter, pixmap.rect());
    painter.end();
    pixmap.setDevicePixelRatio(scale);
    return pixmap;
}

} // namespace

Form5::Form5(Handlers& handlers, std::unique_ptr<QAbstractItemModel> rows, QWidget* parent)
    : QWidget(parent, Qt::Dialog),
      rows_(std::move(rows)),
      DataGrid1(new SurveyGrid(this)),
      notice_(new QLabel(this))
{
    setObjectName("Form5");
    setWindowTitle("DATABASE Tar Vex ");
    setAttribute(Qt::WA_DeleteOnClose);
    Build(handlers);
    DataGrid1->ShowRows(rows_.get());
}

/// The grid lets go of its rows first.
Form5::~Form5()
{
    delete DataGrid1;
}

void Form5::Build(Handlers& handlers)
{
    DataGrid1->setObjectName("DataGrid1");
    DataGrid1->setAccessibleName("Survey rows");
    DataGrid1->OnCommit(
        [this](const QString& mark, const QString& reason) { Report(mark, reason); });
    // Queued, for an editor that closes gives the grid the keyboard in the middle of it.
    DataGrid1->onFocus = [this] {
        QMetaObject::invokeMethod(
            this, [this] { rows_->revert(); }, Qt::QueuedConnection);
    };

    notice_->setObjectName("notice");
    notice_->setTextFormat(Qt::PlainText);
    notice_->setWordWrap(true);
    notice_->setStyleSheet("font-weight: bold; color: #7a0000; background: #ffe3e0; padding: 6px");
    notice_->hide();

    auto* instruction = new QLabel(kInstruction, this);
    instruction->setObjectName("Label1");
    instruction->setTextFormat(Qt::PlainText);
    instruction->setWordWrap(true);

    auto* close = new QPushButton(this);
    close->setObjectName("ssCommand2");
    close->setAccessibleName("Close the database");
    close->setIcon(ClosePicture(devicePixelRatioF()));
    close->setIconSize(QSize(kPicture, kPicture));
    connect(close, &QPushButton::clicked, this,
            [this, &handlers] { handlers.Run([this] { this->close(); }); });

    auto* foot = new QHBoxLayout;
    foot->addWidget(instruction, 1);
    foot->addWidget(close);
    auto* layout = new QVBoxLayout(this);
    layout->addWidget(DataGrid1, 1);
    layout->addWidget(notice_);
    layout->addLayout(foot);
    resize(1000, 520);
    DataGrid1->setFocus();
}

void Form5::Report(const QString& mark, const QString& reason)
{
    notice_->setText(QString("The mark \"%1\" is not stored: %2").arg(mark, reason));
    notice_->setVisible(!reason.isEmpty());
}

void Form5::CommitEdit()
{
    DataGrid1->CommitEdit();
}

void Form5::Refresh()
{
    CommitEdit(); // new data would overwrite what is being typed
    rows_->revert();
}

bool Form5::event(QEvent* event)
{
    if (event->type() == QEvent::WindowActivate) Refresh();
    return QWidget::event(event);
}

void Form5::closeEvent(QCloseEvent* event)
{
    if (!DataGrid1->CommitEdit()) return event->ignore();
    QWidget::closeEvent(event);
}

} // namespace tarvex::panel
