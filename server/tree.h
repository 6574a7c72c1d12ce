#pragma once

// The store as a tree of text files, to be read, edited and kept under version control.
//
//     TREE/QVR/Flmcxx.QVR/证件名称.txt    the project `证件名称` of database file `QVR\Flmcxx.QVR`
//     TREE/Wave/成功.wav                  an uploaded file
//
// A folder whose name ends in `.qvr` (letter case ignored) is a database file and holds nothing but
// its projects, `.txt` files in UTF-8: one field per record, one a line. Lines end with LF in the
// tree and with CR LF in the store; text outside the fields doesn't count. All other files are
// uploaded files.
//
// Files whose name begins with a point don't count, but for `.order` in a database file's folder:
// the project names, one a line, where they don't stand in the order of their characters.
//
// A character that a file system can't hold is written `%` and two hexadecimal digits for each byte
// of its UTF-8 form.
//
// Projects are read and written piece by piece: what is held in memory does not grow with the store. Of
// a tree with a field that is never closed everything behind it is.

#include <functional>

#include <QString>
#include <QStringList>

#include "server/store.h"

namespace hotel {

struct TreeReport {
    QStringList done;   // what was carried over, a line each
    QStringList faults; // what could not be
};

// Is told now and then how many records have been carried over so far, and of which file the last was.
using TreeProgress = std::function<void(qint64 records, const QString& file)>;
inline constexpr int kProgressStep = 50'000; // records

// Loads a tree into the store, on top of what is there: a record of the tree replaces the one of
// its name in the same project, an uploaded file the one of its path, and all else is added at the
// end. With a fault nothing is loaded. Throws StoreError.
TreeReport ImportTree(Store& store, const QString& tree, const TreeProgress& progress = {});

// Writes the whole store to `tree`, a folder that is missing or empty. What would not come back the
// same is a fault; all else is written nevertheless. Throws StoreError.
TreeReport ExportTree(Store& store, const QString& tree, const TreeProgress& progress = {});

} // namespace hotel
