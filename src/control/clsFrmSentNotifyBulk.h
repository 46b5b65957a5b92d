#pragma once

#include "contract/enumerations.h"
#include "control/component.h"
#include "platform/Value.h"

namespace autonotify {

/// Arms a client's open tasks of one year in a single pass, after a person has chosen in a window.
///
/// Create a clsAutoNotifyCtrl and assign its references first; they serve this object too. Failures
/// are settled as there. Call Initialize, set flags that are to differ, call showForm, and
/// saveNotificationsTypes if the choice is to be kept.
class clsFrmSentNotifyBulk : public ComponentObject {
 public:
  /// Takes up the client: a contact or a company with its id, otherwise nothing is set. No kind of
  /// task is chosen then, and of the channels email.
  virtual void Initialize(enumAutoNotifyClientType& clientTypeVar, Id companyNum = noId,
                          Id contactNum = noId) = 0;
  /// Shows the window until the person is done, and with Finish runs the pass. True in `skipStep1`
  /// leaves out the page of the kinds of tasks, so that those are scheduled which the flags say; a
  /// contact never sees it, and `skipStep1` becomes True.
  virtual void showForm(bool& skipStep1) = 0;
  /// Keeps the flags as the client's row of `ClientScheduleAutoNotifications`.
  virtual void saveNotificationsTypes() = 0;

  /// True when the person cancelled.
  virtual bool get_cancelFlag() = 0;
  virtual void put_cancelFlag(bool value) = 0;

  // Which kinds of tasks are scheduled.
  virtual bool get_scheduleProjects() = 0;
  virtual void put_scheduleProjects(bool value) = 0;
  virtual bool get_scheduleBookkeeping() = 0;
  virtual void put_scheduleBookkeeping(bool value) = 0;
  virtual bool get_scheduleGST() = 0;
  virtual void put_scheduleGST(bool value) = 0;
  virtual bool get_schedulePST() = 0;
  virtual void put_schedulePST(bool value) = 0;
  virtual bool get_scheduleFederalPayroll() = 0;
  virtual void put_scheduleFederalPayroll(bool value) = 0;
  virtual bool get_schedulePayrollRemitt() = 0;
  virtual void put_schedulePayrollRemitt(bool value) = 0;
  virtual bool get_scheduleEmployeePayroll() = 0;
  virtual void put_scheduleEmployeePayroll(bool value) = 0;
  virtual bool get_scheduleWSIB() = 0;
  virtual void put_scheduleWSIB(bool value) = 0;
  virtual bool get_scheduleEHT() = 0;
  virtual void put_scheduleEHT(bool value) = 0;
  virtual bool get_scheduleYearEnd() = 0;
  virtual void put_scheduleYearEnd(bool value) = 0;
  virtual bool get_scheduleCorpTax() = 0;
  virtual void put_scheduleCorpTax(bool value) = 0;
  virtual bool get_scheduleLaw() = 0;
  virtual void put_scheduleLaw(bool value) = 0;
  virtual bool get_scheduleOther() = 0;
  virtual void put_scheduleOther(bool value) = 0;
  virtual bool get_scheduleCustom() = 0;
  virtual void put_scheduleCustom(bool value) = 0;

  // By which channels.
  virtual bool get_scheduleEmail() = 0;
  virtual void put_scheduleEmail(bool value) = 0;
  virtual bool get_scheduleFax() = 0;
  virtual void put_scheduleFax(bool value) = 0;
  virtual bool get_scheduleLetter() = 0;
  virtual void put_scheduleLetter(bool value) = 0;
  virtual bool get_schedulePhone() = 0;
  virtual void put_schedulePhone(bool value) = 0;
};

}  // namespace autonotify
