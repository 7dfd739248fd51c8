// The splash: version, picture, and three seconds that do not block.
#include <QDialog>
#include <QElapsedTimer>
#include <QLabel>
#include <QScreen>
#include <QTimer>

#include "shell/frame/windows/frmSplash.h"
#include "window_test.h"

using namespace brantlow;

class FrmSplashTest : public QObject {
    Q_OBJECT
  private Q_SLOTS:
    void showsVersionAndLegalNotice() {
        const frmSplash splash(QStringLiteral("1.2.3"));
        QCOMPARE(splash.findChild<QLabel*>(QStringLiteral("lblVersion"))->text(),
                 QStringLiteral("Version: 1.2.3"));
        QVERIFY(splash.findChild<QLabel*>(QStringLiteral("lblWarning"))
                    ->text()
                    .contains(QStringLiteral("investment advice")));
    }

    void eventsRunWhileItIsShown() {
        frmSplash splash(QStringLiteral("1.2.3"));
        bool ran = false;
        QTimer::singleShot(0, &splash, [&] { ran = splash.isVisible(); });
        splash.ShowFor(20);
        QVERIFY(ran);
    }

    void withoutWaitingItIsShownUntilItIsClosed() {
        frmSplash splash(QStringLiteral("1.2.3"));
        splash.ShowUntilClosed();
        QVERIFY(splash.isVisible());
        QVERIFY(splash.screen()->availableGeometry().contains(splash.geometry().center()));
        QCoreApplication::processEvents();
        QVERIFY(splash.isVisible());
        splash.close();
        QVERIFY(!splash.isVisible());
    }

    void aQuestionThatOpensMeanwhileIsNotHiddenByIt() {
        frmSplash splash(QStringLiteral("1.2.3"));
        splash.ShowUntilClosed();
        QWidget window;
        window.show();
        QVERIFY(splash.isVisible());
        QDialog question(&window);
        question.setModal(true);
        question.show();
        QVERIFY(!splash.isVisible());
    }

    void thePictureIsDrawn() {
        frmSplash splash(QStringLiteral("1.2.3"));
        const QImage image = splash.grab().toImage();
        QVERIFY(image.pixelColor(4, 4) != image.pixelColor(4, image.height() - 4));
    }
};

WINDOW_TEST(FrmSplashTest)
#include "frmSplash_test.moc"
