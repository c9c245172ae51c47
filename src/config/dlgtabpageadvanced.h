#pragma once

#include "config/dlgtabpage.h"

class QRadioButton;
class QVBoxLayout;

// The units of the match results and how picked pixels are averaged.
class CDlgTabPageAdvanced : public CDlgTabPage
{
    Q_OBJECT

public:
    explicit CDlgTabPageAdvanced(CAppSettings *settings, QWidget *parent = nullptr);

    // Stores both choices; true when either differs from before.
    bool applyChanges() override;

    QRadioButton *percentButton() const { return m_percent; }
    QRadioButton *deltaEButton() const { return m_deltaE; }
    QRadioButton *rgbAverageButton() const { return m_rgbAverage; }
    QRadioButton *labAverageButton() const { return m_labAverage; }
    // The page's column of groups; further groups go below the last one.
    QVBoxLayout *groupLayout() const { return m_layout; }

private:
    void addUnitsGroup();
    void addAveragingGroup();

    QVBoxLayout *m_layout = nullptr;
    QRadioButton *m_percent = nullptr;
    QRadioButton *m_deltaE = nullptr;
    QRadioButton *m_rgbAverage = nullptr;
    QRadioButton *m_labAverage = nullptr;
};
