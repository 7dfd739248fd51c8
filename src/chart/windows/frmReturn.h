// The report of the back-test: what the chart's Buy and Sell signals would have earned. Computed once, when
// the dialog loads, over the bars that the chart shows. The chart window opens it with TestConditions.
#pragma once

#include <QDialog>

#include "chart/chart_session.h"
#include "indicators/working_series.h"
#include "shell/person.h"
#include "shell/settings/settings_tables.h"

namespace brantlow {

// What the report is made of.
struct ReturnSource {
    const SettingsTables& settings;
    const WorkingSeries& series;
    // Its Label58 names the ticker.
    const ChartSession& chart;
};

class frmReturn final : public QDialog {
    Q_OBJECT
  public:
    frmReturn(const ReturnSource& source, QWidget* parent);

  protected:
    void showEvent(QShowEvent* event) override;
};

// The button "Test Buy and Sell Conditions": shows the report over `parent`, or tells the person that a
// condition is missing.
void TestConditions(const ReturnSource& source, Person& person, QWidget* parent);

}  // namespace brantlow
