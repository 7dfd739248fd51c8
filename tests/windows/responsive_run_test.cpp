// The window lives during every long run: its events are looked at after each ticker. What is counted is how
// many tickers a run works through between two turns of the event loop.
#include <QAbstractButton>
#include <QTimer>
#include <algorithm>

#include "catalogue_scene.h"

using namespace brantlow;

namespace {

// Takes down at every turn of the event loop which row the run is at.
class LoopWatch {
  public:
    explicit LoopWatch(Session& session) {
        QObject::connect(&timer_, &QTimer::timeout, [this, &session] {
            const std::size_t row = session.run.CurrentRow;
            if (session.run.ProcessCommand != kRunning || row == 0) return;
            ++turns;
            if (row > last_) longest = std::max(longest, row - last_);
            last_ = row;
        });
        timer_.start(0);
    }

    std::size_t turns = 0;
    // Rows between two turns.
    std::size_t longest = 0;

  private:
    std::size_t last_ = 0;
    QTimer timer_;
};

}  // namespace

class ResponsiveRunTest : public QObject {
    Q_OBJECT
  private Q_SLOTS:
    void eachRunLooksAtTheEventsAfterEachTicker_data() {
        QTest::addColumn<QString>("entry");
        QTest::addColumn<int>("most");
        // An update fetches fifteen tickers at once; the rows of a reply are then filled one by one.
        QTest::newRow("update") << QStringLiteral("mnuFileUpdateQuotes") << 15;
        QTest::newRow("selector") << QStringLiteral("mnuEvaluatePickStocks") << 1;
        QTest::newRow("fundamentals") << QStringLiteral("mnuExtendedFundamentals") << 1;
    }
    void eachRunLooksAtTheEventsAfterEachTicker() {
        QFETCH(QString, entry);
        QFETCH(int, most);
        SceneProgram program("Feb.ddq");
        DialogHand hand([](QDialog& dialog) {
            for (QAbstractButton* button : dialog.findChildren<QAbstractButton*>()) {
                if (button->text().remove(u'&') == QStringLiteral("Continue")) return button->click();
            }
            if (auto* box = qobject_cast<QMessageBox*>(&dialog)) return box->buttons().constFirst()->click();
            dialog.reject();
        });
        LoopWatch watch(program.session);
        program.Choose(entry.toStdString());
        QVERIFY(QTest::qWaitFor([&] { return watch.turns > 0 && program.frame->isEnabled(); }, kPatienceMs));
        QVERIFY2(watch.turns >= 40 / static_cast<std::size_t>(most), std::to_string(watch.turns).c_str());
        QVERIFY2(watch.longest <= static_cast<std::size_t>(most), std::to_string(watch.longest).c_str());
    }
};

QTEST_MAIN(ResponsiveRunTest)
#include "responsive_run_test.moc"
