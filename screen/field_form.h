#pragma once

// An entry panel that is declared, not drawn: labelled editors built from a table, which move their
// values to and from record text.
//
//     const QList<FormField> kGuestFields = {
//         {u"客人姓名", u"Krxm", u"客人姓名", Editor::Text, {}, 16, 40},
//         {u"证件种类", u"Zjzl", u"证件种类", Editor::Category, u"证件名称"},
//         {u"入住日期", u"Rzrq", u"入住日期", Editor::Date},
//     };
//     auto* form = new FieldForm(kGuestFields, 3);
//     form->load(guestText);
//     guestText = form->store(guestText);
//
// Enter and Tab go through the editors in the order of the table.

#include <QHash>
#include <QList>
#include <QString>
#include <QStringList>
#include <QStringView>
#include <QWidget>
#include <functional>
#include <optional>

namespace hotel {

enum class Editor {
    Text,
    Number,       // digits
    Amount,       // digits, point, and what reckons (see SetAmountReader); "#0.00" on leaving
    Date,         // any form of DateFromTyped; "yyyy-MM-dd" on leaving
    Time,         // any form of TimeFromTyped; "HH:mm:ss" on leaving
    ShortTime,    // as Time, "HH:mm"
    Category,     // a choice from a category; a value that is not in the list is shown all the same
    CategoryText, // a category to choose from or any text
    Check,        // "1" and "0"
    MultiLine,    // lines; Ctrl+Enter or Tab moves on
    ReadOnly,     // shown, and stored as loaded
    Password,     // takes every sign and any length
};

struct FormField {
    QStringView tag;     // field of the record; empty: neither loaded nor stored
    QStringView control; // object name of the editor
    QStringView label;
    Editor editor = Editor::Text;
    QStringView category = {}; // of Category and CategoryText; empty: the screen fills the list
    int width = 0;             // in digits of the font; 0: by the kind of editor
    int maxBytes = 0;          // in bytes of the code page (AnsiLen); 0: any
};

// How a category's entries are read. Set once, by the program; called when a drop-down is first
// opened or searched by letters, as a handler of its screen. It may wait on the server, and gives nothing
// when that fails: then it is called again when the drop-down is wanted the next time.
void SetCategoryLoader(std::function<std::optional<QStringList>(QStringView category)> loader);

// Whether letters typed in a drop-down mean an entry (by its pinyin initials, say). At the start:
// whether the entry begins with them.
void SetCategoryMatch(std::function<bool(QStringView entry, QStringView typed)> match);

// What an Amount comes to; no value where the text can't be reckoned, which leaves it as typed. At
// the start: the text if it is a number throughout.
void SetAmountReader(std::function<std::optional<double>(const QString&)> reader);

class FieldForm : public QWidget {
    Q_OBJECT

public:
    // The fields fill `columns` columns row by row, in the order of the table; a MultiLine takes a
    // row of its own. The table is copied; the texts its views look at must live as long as the
    // form (literals do).
    FieldForm(const QList<FormField>& fields, int columns = 2, QWidget* parent = nullptr);

    const QList<FormField>& fields() const { return fields_; }

    // The editor of a control, to be asked by its own type:
    //     form->editor<QComboBox>(u"Ft")
    QWidget* editor(QStringView control) const;
    template<class Widget>
    Widget* editor(QStringView control) const {
        return qobject_cast<Widget*>(editor(control));
    }

    // The value as the record would carry it: normalised, whatever was typed.
    QString text(QStringView control) const;
    void setText(QStringView control, const QString& text);

    // Shows the record's fields; a field the record doesn't hold empties its editor.
    void load(QStringView record);

    // `record` with the fields of the table set by SetTag in the order of the table: an empty value
    // removes its field, fields that the table doesn't know stay as they are.
    QString store(const QString& record) const;

    // Empties all editors (checks: off).
    void clear();

    // The entries of a drop-down: as the screen sets them, or read from their category now.
    void setChoices(QStringView control, const QStringList& entries);
    void loadCategories();

    // An editor that can't be typed into for the time being; Enter passes it by.
    void setReadOnly(QStringView control, bool readOnly);

Q_SIGNALS:
    void edited(const QString& control); // the user changed the value
    void left(const QString& control);   // the focus has left; the text is normalised already

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    const FormField& field(QStringView control) const;
    QWidget* makeEditor(const FormField& field);
    QString typedText(QStringView control) const;
    void leave(const FormField& field);

    QList<FormField> fields_;
    QHash<QString, QWidget*> editors_; // by control
    bool quiet_ = false;               // a value is being set, not typed
};

} // namespace hotel
