#pragma once

#include "colour/colourvision.h"

#include <QObject>
#include <QPointer>

#include <memory>

class CAppSettings;
class CColourImageWindow;
#include <QLabel>
class QMenu;
class QPoint;

// The image view's "Colour Vision" setting: a context menu of our own on
// the picture (right click in click-pick mode, the keyboard's menu key in
// either mode) (normal, the three dichromacies, achromatopsia, and the three
// anomalies with a severity from 0.1 to 1.0), kept in the settings (normal
// by default, which shows the picture as stored), handed to the image
// widget that simulates at paint time, and a label of our own under the
// sample saying how the sample looks under the simulation (hex and nearest
// name of the chosen library table). Picks keep reading the stored pixels.
class CColourVisionTools : public QObject
{
    Q_OBJECT

public:
    CColourVisionTools(CAppSettings *settings, CColourImageWindow *page, QObject *parent);

    const ColourVision &vision() const { return *m_vision; }
    void setVision(ColourVision::Type type, double severity);
    // The image view's pop-up menu with the choices, the current one checked.
    QMenu *buildMenu(QWidget *parent);
    QLabel *simulatedLabel() const { return m_label; }

protected:
    // The image widget's context menu events: the menu above, except for a
    // right click in rubber-band mode (whose release reads the band).
    bool eventFilter(QObject *watched, QEvent *event) override;

private:
    void showMenu(const QPoint &pos);
    void addChoice(QMenu *menu, const QString &text, ColourVision::Type type, double severity);
    void refreshLabel();

    CAppSettings *m_settings;
    QPointer<CColourImageWindow> m_page;
    std::shared_ptr<const ColourVision> m_vision;
    QPointer<QLabel> m_label;
};
