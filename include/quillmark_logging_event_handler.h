/* SPDX-License-Identifier: MIT */
#ifndef QUILLMARK_LOGGING_EVENT_HANDLER_H
#define QUILLMARK_LOGGING_EVENT_HANDLER_H

#include <string>

#include "quillmark_logging_export.h"

/* Makes the log levels of an application changeable while it runs. From its construction on, an object has a thread
 * that waits for the system-wide named event "QMRK_LOG_EVENT". Whenever a process sets the event (SetEvent, or "qmrkctl
 * signal" on every platform), the thread calls Quillmark_logging::updateLogLevels() and then resets the event: a
 * setting during the update is absorbed by that reset. Processes of the same user (on Windows: of the same logon) share
 * the event and are all woken.
 *
 * Ending: the destructor gives the thread getThreadHandle() stands for 1000 ms to end, then terminates it with exit
 * code 1 (on Linux never in the middle of an update: it waits for that). A terminated thread never closes its event:
 * the process remains a user of it, on Linux by one reference for each name. A thread that waits does not end by
 * itself: to spare the time, call setListenForEventState(false), set the event and wait for the thread before
 * destroying the object. The thread ends then with exit code 0. Exit code 0xFFFFFFFF: the event could not be created.
 *
 * Unloading: on Linux the library stays loaded after dlclose, so the thread of an object that is still alive goes on.
 * On Windows destroy every object before FreeLibrary.
 *
 * Copies share one thread handle. Each of them waits for the thread in its destructor and closes the handle, the second
 * one in vain; the thread works for the object that started it, which must outlive it. Copy only what you can keep in
 * order.
 *
 * An update that fails, for lack of memory too, is traced, and the thread goes on listening.
 *
 * The threads of the library block every signal: those of the application reach the application's own threads.
 *
 * When the trace is on (QMRK_TRACE of the generic configuration while the library was loaded) the class traces to
 * std::cout and std::cerr.
 *
 * Members may be called on any thread, those that change the object by one thread at a time; setListenForEventState and
 * both setLogEventName also while the object's own thread runs. */
class QMRK_LOG_API LogEventHandler {
 public:
  /* Starts the thread. When that fails isCreated() is 0, and createWorkerThread may be called again. */
  LogEventHandler();

  /* Copy every field, the thread handle too; start and stop nothing. */
  LogEventHandler(const LogEventHandler& _other);
  LogEventHandler& operator=(const LogEventHandler& _other);

  /* Ends the thread as described above, and closes its handle. */
  virtual ~LogEventHandler();

  /* Starts the thread. Returns false, and starts nothing, when the object has or had one, or when the system refuses.
   */
  bool createWorkerThread();

  /* 1 when a thread was started, also when it has ended; else 0. */
  int isCreated() const;

  /* The handle of the thread, owned by the object; null when none was started. */
  Quillmark_logging::handle getThreadHandle() const;

  /* The system's id of the thread, 0 when none was started. Set when the constructor returns. */
  Quillmark_logging::dword getThreadId() const;

  /* Whether the thread goes on waiting after the next setting of the event. A change to false counts only after that
   * setting, which still causes an update. */
  bool getListenForEventState() const;
  void setListenForEventState(bool _listenForEventState);

  /* The name of the event. The thread reads it once, when it starts. */
  const char* getLogEventName() const;

  /* Stores the pointer itself: the characters must outlive the object. Not null. */
  void setLogEventName(const char* _logEventName);

  /* Stores the address of the characters of its argument, which ends with the call: the stored name DANGLES from then
   * on and must be neither read nor left in place when a thread is started. Kept for compatibility. Callers that need a
   * name that lasts take the form above. */
  void setLogEventName(std::string _logEventName);

 protected:
  /* For a derived class that overrides listen4EventThread: constructs the object without a thread, and traces nothing.
   * The derived class starts the thread by createWorkerThread() as the last step of its own constructor:
   *
   *   MyHandler::MyHandler() : LogEventHandler(startLater), counter_(0) { createWorkerThread(); }
   *
   * With the default constructor the thread may run before the object is a MyHandler: it is a matter of chance then
   * whether the override or the body of this class is called. An override that uses members of the derived class must
   * have returned before those are destroyed, so end the thread in the destructor of the derived class. */
  enum StartLater { startLater };
  explicit LogEventHandler(StartLater _startLater);

  /* The body of the thread; its result is the exit code. The argument is null. The call is made in the new thread, with
   * the default constructor possibly before the constructor of a derived class has finished. An exception that is
   * derived from std::exception ends the thread with exit code 0xFFFFFFFF; any other ends the application. On Linux a
   * thread is terminated only inside this class's wait for the event, whose stack is then unwound: an override that
   * never returns, nor calls this one, makes the destructor wait for ever, and one that calls it must not swallow
   * everything it catches. */
  virtual Quillmark_logging::dword listen4EventThread(void* _argument);

 private:
  static int runProcess(void* _box);
  Quillmark_logging::handle createEvent(std::string _eventName);
  bool resetEvent(Quillmark_logging::handle _handle);
  bool closeHandle(Quillmark_logging::handle _handle);

  Quillmark_logging::handle threadHandle_;
  Quillmark_logging::dword threadId_;
  Quillmark_logging::dword timeout_; /* milliseconds */
  const char* logEventName_;         /* not owned */
  bool listenForEventState_;
};

#endif
