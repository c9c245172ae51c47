#pragma once

#include "help/qgroupboxbold.h"

class CAppSettings;
class QCheckBox;

// "Colour Profiles" on the Advanced page, below the other groups: whether an
// image tagged with a colour profile other than sRGB is converted to sRGB
// when it is opened. Like the pages, it changes the settings only on apply.
class CColourProfilesGroup : public QGroupBoxBold
{
    Q_OBJECT

public:
    explicit CColourProfilesGroup(CAppSettings *settings, QWidget *parent = nullptr);

    // Stores the choice; true when it differs from before.
    bool applyChanges();

    QCheckBox *convertBox() const { return m_convert; }

private:
    CAppSettings *m_settings = nullptr;
    QCheckBox *m_convert = nullptr;
};
