#pragma once

#include "access/contrastcolour.h"

#include <QVector>
#include <QWidget>

#include <functional>

class CContrastVerdicts;
class QComboBox;
class QFrame;
class QLabel;
class QPushButton;

// "Vellora - Contrast": a text colour and a background colour side by side
// with their names, a Swap button, the WCAG ratio with its five verdicts,
// the APCA Lc with its guidance, and text in the two colours at normal and
// large size. The background is chosen from a list (white, black and what
// the candidates provider offers: the multiple-selection entries, the match
// rows, the data set rows), or is the next pick on the page while the
// window is open and "Next pick on the page" is chosen.
class CContrastWindow : public QWidget
{
    Q_OBJECT

public:
    using Provider = std::function<QVector<ContrastColour>()>;

    explicit CContrastWindow(QWidget *parent = nullptr);

    void setPair(const ContrastColour &text, const ContrastColour &background);
    // Asked again whenever the window is shown or activated, so that the
    // list follows the page and the data set.
    void setCandidatesProvider(Provider provider);
    // A new pick on the page: becomes the background while "Next pick on
    // the page" is chosen in the list.
    void takePick(const RgbColour &colour);

    ContrastColour textColour() const { return m_text; }
    ContrastColour backgroundColour() const { return m_background; }
    void swap();
    // Re-reads the list from the provider.
    void refreshCandidates();

    QPushButton *swapButton() const { return m_swap; }
    QComboBox *backgroundList() const { return m_list; }
    CContrastVerdicts *verdicts() const { return m_verdicts; }
    QLabel *textSwatch() const { return m_textSwatch; }
    QLabel *backgroundSwatch() const { return m_backgroundSwatch; }
    QLabel *textName() const { return m_textName; }
    QLabel *backgroundName() const { return m_backgroundName; }
    QFrame *preview() const { return m_preview; }
    QLabel *normalPreview() const { return m_normalText; }
    QLabel *largePreview() const { return m_largeText; }

    // The list's first entry: the background follows the page's picks.
    static const int kNextPickIndex = 0;

protected:
    bool event(QEvent *event) override;

private:
    QWidget *buildSwatches();
    QWidget *buildPreview();
    QWidget *buildList();
    void chooseBackground(int index);
    void showPair();
    static QString describe(const ContrastColour &colour);

    ContrastColour m_text;
    ContrastColour m_background;
    QVector<ContrastColour> m_candidates;
    Provider m_provider;
    QLabel *m_textSwatch = nullptr;
    QLabel *m_backgroundSwatch = nullptr;
    QLabel *m_textName = nullptr;
    QLabel *m_backgroundName = nullptr;
    QPushButton *m_swap = nullptr;
    CContrastVerdicts *m_verdicts = nullptr;
    QFrame *m_preview = nullptr;
    QLabel *m_normalText = nullptr;
    QLabel *m_largeText = nullptr;
    QComboBox *m_list = nullptr;
};
