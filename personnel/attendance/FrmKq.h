#pragma once

// The punching desk (员工考勤): it stands open at the staff entrance all day, and everybody who comes or goes types
// his number, or swipes his card, and presses Enter. That is all: the server's time, the weekday and his shift
// periods decide the rest (punch.h), the answer stands there large enough to be read over two shoulders, and the
// box is ready for the next.
//
// Whoever types while a punch is on its way waits in the quick buffer, which the timer works off. Nothing that
// goes wrong waits for a key, unless the parameter ErrPause says so: the next in the queue must not answer a box
// that was meant for the one before.
//
// While the server is away the screen is red and says so; every try is refused with the sound of failure, and
// nobody's punch is kept for later, so that nobody goes to work in the belief that he is in. The desk logs itself
// in again when the server is back (desk_login.h), and turns ready by itself.

#include <QString>

#include <memory>

#include "personnel/attendance/desk_login.h"
#include "personnel/attendance/punch.h"
#include "screen/screen.h"

class QComboBox;
class QLabel;
class QLineEdit;
class QListWidget;

namespace hotel {

class GridView;
class PhotoFrame;

class FrmKq : public Screen {
    Q_OBJECT

public:
    FrmKq();
    ~FrmKq() override;

    // Begins to punch; a desk that stands is left as it is.
    void load(const QVariant& argument) override;

protected:
    bool closing() override;
    void keyPressEvent(QKeyEvent* event) override;

private:
    enum class Tone { Ready, Good, Attention, Failure };

    QWidget* makeClock();
    QWidget* makeEntry();
    void ComBh_Return();
    void takeEntry(const QString& entered, const QString& means = {}, const QString& place = {});
    void CmdShb_Press();
    void CmdShb_Click();
    void FreshCmd_Click();
    void Timer1_Timer();

    void showPerson();
    void clearPerson();
    void refuse(const Notice& notice);
    void told(const QString& words, const QString& small, Tone tone);
    void showTime();
    bool serverIsThere();
    void setAway(bool away);
    QString takePhotograph();
    void keepPhotograph(const QString& localFile, const QString& key);
    void greet();

    StaffDirectory directory_;
    PunchFile file_;
    std::unique_ptr<DeskLogin> login_;
    PreparedPunch punch_; // whose turn it is; without a number: nobody's
    bool away_ = false;
    bool camera_ = false;
    int refreshIn_ = 0; // ticks

    QLabel* Sj; // the time
    QLabel* Rq; // the date
    QLineEdit* ComBh;
    QComboBox* ComBm;
    QLabel* Ygbh;
    QLabel* Ygxm;
    QLabel* Ygzw;
    QComboBox* Kqgn; // 考勤功能
    QComboBox* Kqzt; // 状态
    QLineEdit* Kqsm; // 考勤说明
    QLineEdit* DevPos;
    QLabel* Result;
    QLabel* ResultMore;
    QWidget* resultPanel_;
    GridView* Kqqd;
    QListWidget* KqBuf;
    PhotoFrame* Zp;
    QTimer* Timer1; // its property Tag counts the ticks
};

} // namespace hotel
