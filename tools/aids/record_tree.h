#pragma once

// A database file as a tree: its projects, their records and the fields inside these.
//
// Every node carries its text as it stands on the server. A node is named by its path, the names from
// the project down to it; the path with blanks between is its key ("结账号信息 260305100000").
//
// A load runs as part of a handler of a screen and lets events through at every record, so that the
// window lives while a big file comes in. Esc, a stop command and closing the window end it; what has
// come stays.

#include <QList>
#include <QString>
#include <QStringList>
#include <QTreeWidget>
#include <functional>

namespace hotel {

class Screen;

class RecordTree : public QTreeWidget {
    Q_OBJECT

public:
    enum class Fields {
        None,       // records are the leaves
        WhenOpened, // made as a node is opened: a record of a big file costs one node
        AtOnce,
    };

    // Columns: 名称, the node's own name, and 内容, the text of a leaf.
    RecordTree(const QString& name, Fields fields, QWidget* parent = nullptr);

    // What a record shows from column 内容 on, whether it is open or not: titles of the columns behind
    // 内容, and the cells of a record.
    struct Column {
        QString title;
        bool isAmount = false; // aligned to the right
    };
    using RecordCells =
        std::function<QStringList(QStringView project, const QString& key, const QString& record)>;
    void setRecordCells(const QList<Column>& furtherColumns, RecordCells cells);

    enum class Load {
        Complete, // a file that doesn't exist is an empty tree
        Aborted,
        Failed, // the server didn't give all of it
    };
    // Shows a file in place of the one before; one command a project. An empty name empties the tree.
    Load load(Screen& screen, const QString& file);

    // Ends a load that is under way and marks the tree by the property Tag: "Abort".
    void abort();

    // `node` may be null in all of these.
    static QStringList PathOf(const QTreeWidgetItem* node);
    static QString KeyOf(const QTreeWidgetItem* node) { return PathOf(node).join(u' '); }
    static bool IsRecord(const QTreeWidgetItem* node);
    static QString TextOf(const QTreeWidgetItem* node);

    // The node at a path of project and record; null where there is none.
    QTreeWidgetItem* find(QStringView project, QStringView record = {}) const;

    // Replaces the text of a record or field in the tree, and in the texts of the nodes that it lies
    // in; an empty field is taken out of them.
    void setText(QTreeWidgetItem* node, const QString& text);

private:
    bool stop(Screen& screen); // whether the load is to end
    bool addRecords(Screen& screen, QTreeWidgetItem* project, QStringView records);
    void addRecord(QTreeWidgetItem* project, const QString& name, const QString& text);
    void setNodeText(QTreeWidgetItem* node, const QString& text); // and what shows it
    void addFields(QTreeWidgetItem* node);

    Fields fields_;
    QList<Column> furtherColumns_;
    RecordCells recordCells_;
};

} // namespace hotel
