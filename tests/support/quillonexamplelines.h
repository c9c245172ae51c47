#pragma once

// The example lines of a Quillon colour list and what each becomes, for the
// tests that import through the command-line tool and through the dialog:
// both must give the same table lines for the same input.
namespace QuillonExampleLines {

// Columns "line" (QByteArray, as in the file) and "entry" (QString, the
// table line it is saved as).
void addAcceptedRows();
// Column "line" (QByteArray): lines the import refuses.
void addRefusedRows();

} // namespace QuillonExampleLines
