#pragma once

// The guest form (住客信息): one guest of the party after the other, bed by bed and room by room. It works
// on the working set of the check-in screen (house/guests/working_set.h) and writes nothing to the server.
//
//     ModalScreen<RzdjFrm> form(this, workingSet, rooms);
//     form.show();
//     workingSet = form->workingSet();
//
// What the next guest doesn't have yet stays from the guest before, so that a party is typed once. The
// form stores the guest shown when it is left, if he is complete; without a complete first guest there
// is no registration and the working set becomes empty.

#include <QDateTime>
#include <QList>
#include <QString>

#include "house/guests/guest_form.h"
#include "house/guests/working_set.h"
#include "house/rooms/rate_table.h"
#include "screen/screen.h"

class QLabel;

namespace hotel {

class FieldForm;
class PhotoFrame;
struct IdentityNumber;

class RzdjFrm : public Screen {
    Q_OBJECT

public:
    enum class Use {
        CheckIn,
        RoomChange
    }; // in a room change there is one room, and nobody to register quickly

    // The set as OpenWorkingSet or PrepareRoomChange has made it for these rooms, each with a bed on offer.
    RzdjFrm(const QString& workingSet, const QList<ChosenRoom>& rooms, Use use = Use::CheckIn);

    // Reads the categories and rates, and shows the first guest.
    void load(const QVariant& argument) override;

    const QString& workingSet() const { return set_; }

    // Shows a guest of the working set; room and guest are counted from 1, the guests by the beds on
    // offer in the room.
    void SetForm(int roomIndex, int guestIndex);
    // Writes the form back into the working set.
    void UpdateRec();
    // What the guest on the form lacks (see GuestLack). Empties what is no folio number, and fills
    // address, age and sex from a good identity number while the address is empty.
    int testKrJbxxFail();

protected:
    bool closing() override;
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    void Zjhm_KeyPress(); // Enter or Tab behind the document number
    void Krnl_LostFocus();
    void Rzsj_LostFocus();
    void Yjld_LostFocus();
    void Ft_Change();
    void Skhz_Click();
    void Ffkr_Click();
    void Fjzl_Click();
    void Jzh_Click();
    void Field_Edited(const QString& control);
    void Field_Left(const QString& control);
    void finishField();
    void takeIdentity(const IdentityNumber& identity);
    void KsCmd_Click();
    void CopyKr_Click();
    void PasteKr_Click();
    void Zjpz_Click();
    void Rxpz_Click();

    void move(FormMove step);
    QString room() const; // where the form is
    QStringList beds() const;
    QString bed() const;
    QString formRecord() const;
    void fillForm(const QString& guest);
    void showRates(const QString& roomType);
    void showPlace();
    void showPhotographs();
    void showLack(int lack); // says what is lacking and goes to the first of it
    QDateTime folioMoment() const;

    QString set_;
    QList<ChosenRoom> rooms_;
    FormPlace place_;
    QStringList folios_;   // open ones
    QStringList statuses_; // that a stay may have
    QString copied_;
    RateChoice rates_;
    QString ratesOf_; // the room type that rates_ belongs to

    // Files of this workstation, until the check-in is confirmed.
    QString portraitFile_;
    QString documentFile_;

    QLabel* banner_;
    FieldForm* form_;
    PhotoFrame* portrait_;
    PhotoFrame* document_;
};

} // namespace hotel
