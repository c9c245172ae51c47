#pragma once

#include "library/libcolourtabletabbase.h"

class CAppSettings;
class QPushButton;

// The "Import" page: turns a Quillon ".config" colour list into a new
// library table. The parsing lives in the core (CQuillonImport); this page
// asks for the file and the table name and reports what went wrong.
class CLibColourTableTabImport : public CLibColourTableTabBase
{
    Q_OBJECT

public:
    CLibColourTableTabImport(CAppSettings *settings, const QString &helpAnchor,
                             QWidget *parent = nullptr);

    // Reads path, asks for the new table's name and writes it into the
    // library. True only when a table file was written.
    bool import(QWidget *parent, const QString &path);

    QPushButton *quillonButton() const { return m_quillonButton; }

public slots:
    void QuillonImport();

private:
    CAppSettings *m_settings = nullptr;
    QPushButton *m_quillonButton = nullptr;
};
