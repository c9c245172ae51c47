// Takes the manual's pictures from the real windows: builds the main
// window in a private home, opens a generated photo-like picture, picks and
// matches a colour, adds colours to a data set through the real dialog,
// and saves each window's image into the folder given on the command line.
// Run it through scripts/screenshots.sh (offscreen, with a temporary home).

#include "common/appcontext.h"
#include "app/appsettings.h"
#include "app/application.h"
#include "app/mainwindow.h"
#include "data/chartdatawindow.h"
#include "help/helpwindow.h"
#include "help/tipdialog.h"
#include "sample/colourimagewindow.h"
#include "sample/imagewidget.h"

#include <QAbstractButton>
#include <QComboBox>
#include <QDir>
#include <QLineEdit>
#include <QLinearGradient>
#include <QMenu>
#include <QMouseEvent>
#include <QPainter>
#include <QStandardPaths>
#include <QTabWidget>
#include <QTimer>
#include <QToolButton>
#include <cstdio>
#include <functional>

namespace {

QString g_outputFolder;

bool save(QWidget *widget, const QString &name)
{
    const QString path = g_outputFolder + QLatin1Char('/') + name;
    const bool saved = widget->grab().save(path, "PNG");
    std::printf("%s %s\n", saved ? "wrote" : "FAILED", qPrintable(path));
    return saved;
}

// A still life of painted patches under soft light: enough colour and
// shading to make picking and matching worth showing.
QString writePicture(const QString &folder)
{
    QImage image(640, 420, QImage::Format_RGB32);
    QPainter painter(&image);
    QLinearGradient wall(0, 0, 0, 420);
    wall.setColorAt(0, QColor(236, 226, 205));
    wall.setColorAt(1, QColor(180, 160, 130));
    painter.fillRect(image.rect(), wall);
    const QColor colours[] = {QColor(200, 40, 50), QColor(255, 128, 0), QColor(70, 130, 180),
                              QColor(50, 205, 50), QColor(106, 90, 205), QColor(255, 215, 0)};
    for (int i = 0; i < 6; ++i) {
        const QRect patch(30 + (i % 3) * 200, 40 + (i / 3) * 190, 170, 160);
        QLinearGradient light(patch.topLeft(), patch.bottomRight());
        light.setColorAt(0, colours[i].lighter(115));
        light.setColorAt(1, colours[i].darker(125));
        painter.setPen(QPen(QColor(60, 50, 40), 3));
        painter.setBrush(light);
        painter.drawRoundedRect(patch, 12, 12);
    }
    painter.end();
    const QString path = folder + QLatin1String("/still-life.png");
    image.save(path, "PNG");
    return path;
}

void clickImage(CImageWidget *widget, const QPoint &point)
{
    QMouseEvent press(QEvent::MouseButtonPress, point, widget->mapToGlobal(point), Qt::LeftButton,
                      Qt::LeftButton, Qt::NoModifier);
    QCoreApplication::sendEvent(widget, &press);
    QMouseEvent release(QEvent::MouseButtonRelease, point, widget->mapToGlobal(point),
                        Qt::LeftButton, Qt::NoButton, Qt::NoModifier);
    QCoreApplication::sendEvent(widget, &release);
}

// Answers the next modal dialog from a timer: `act` runs on it.
void whenModal(const std::function<void(QWidget *)> &act)
{
    auto *timer = new QTimer;
    QObject::connect(timer, &QTimer::timeout, timer, [timer, act]() {
        QWidget *dialog = QApplication::activeModalWidget();
        if (!dialog)
            return;
        timer->stop();
        timer->deleteLater();
        act(dialog);
    });
    timer->start(50);
}

QAbstractButton *buttonNamed(QWidget *dialog, const QString &text)
{
    for (QAbstractButton *button : dialog->findChildren<QAbstractButton *>()) {
        if (button->text() == text)
            return button;
    }
    return nullptr;
}

void addToDataSet(CMainWindow &window, const QString &name, bool grabDialog)
{
    whenModal([name, grabDialog](QWidget *dialog) {
        if (auto *edit = dialog->findChild<QLineEdit *>())
            edit->setText(name);
        // The first colour starts a new data set; later ones join it.
        QAbstractButton *current = buttonNamed(dialog, QStringLiteral("Add to untitled file"));
        QAbstractButton *newFile = buttonNamed(dialog, QStringLiteral("Add to a new file"));
        if (current && current->isEnabled())
            current->setChecked(true);
        else if (newFile)
            newFile->setChecked(true);
        if (grabDialog)
            save(dialog, QStringLiteral("add-colour-dialog.png"));
        if (QAbstractButton *ok = buttonNamed(dialog, QStringLiteral("&OK")))
            ok->click();
    });
    window.samplingPage()->commandButton(15)->click();
}

void takeMainWindowPictures(CMainWindow &window, const QString &picture)
{
    window.settings()->addRecentFile(&window, picture);
    window.refreshRecentFiles();
    window.recentMenu()->actions().first()->trigger();
    QCoreApplication::processEvents();
    CImageWidget *image = window.samplingPage()->imageWidget();
    window.samplingPage()->pickSizeCombo()->setCurrentIndex(2);
    const QString names[] = {QStringLiteral("Tomato"),
                             QStringLiteral("Orange"),
                             QStringLiteral("Steel blue")};
    const QPoint points[] = {QPoint(110, 120), QPoint(310, 120), QPoint(510, 120)};
    for (int i = 0; i < 3; ++i) {
        window.tabWidget()->setCurrentIndex(0);
        clickImage(image, points[i]);
        addToDataSet(window, names[i], i == 1);
    }
    window.tabWidget()->setCurrentIndex(0);
    clickImage(image, QPoint(115, 300));
    window.samplingPage()->commandButton(14)->click();
    QCoreApplication::processEvents();
    save(&window, QStringLiteral("sample-page.png"));
    window.tabWidget()->setCurrentIndex(1);
    QCoreApplication::processEvents();
    save(&window, QStringLiteral("data-page.png"));
}

} // namespace

int main(int argc, char *argv[])
{
    QApplication::setAttribute(Qt::AA_EnableHighDpiScaling, true);
    CApplication application(argc, argv);
    if (argc < 3) {
        std::fprintf(stderr, "usage: vellora-screenshots OUTPUT_FOLDER HELP_FOLDER\n");
        return 1;
    }
    g_outputFolder = QString::fromLocal8Bit(argv[1]);
    const QString helpFolder = QString::fromLocal8Bit(argv[2]);
    QDir().mkpath(g_outputFolder);
    AppContext::initResources();
    AppContext::setWidgetPrefix(QStringLiteral(":/resources/widgets/"));

    auto *window = new CMainWindow(AppContext::versionTitle());
    // Wide enough for the sampling page's panel, which takes the width of
    // its widest match rows from the start, and the whole picture beside it.
    window->resize(1400, 800);
    window->show();
    const QString documents = QStandardPaths::writableLocation(QStandardPaths::DocumentsLocation);
    takeMainWindowPictures(*window, writePicture(documents));

    CTipDialog tip(window->settings(), nullptr, helpFolder + QLatin1String("/tips.txt"));
    tip.setWindowTitle(QStringLiteral("Vellora - Tip Of The Day"));
    tip.setFixedSize(tip.sizeHint());
    tip.show();
    save(&tip, QStringLiteral("tip-dialog.png"));

    CHelpWindow *help = CHelpWindow::showHelp(AppContext::productName(),
                                              QStringLiteral("sample.html#picking"),
                                              QRect(0, 0, 1000, 640), 260, 740, helpFolder);
    save(help, QStringLiteral("help-window.png"));
    CHelpWindow::deleteInstance();
    delete window;
    return 0;
}
