/* SPDX-License-Identifier: MIT */
#ifndef QUILLMARK_LOGGING_EVENT_HANDLER_H
#define QUILLMARK_LOGGING_EVENT_HANDLER_H

/// @file
/// The listener that re-applies the log levels. Included by quillmark_logging.h.

#include <string>

#include "quillmark_logging_export.h"

/// Lets the log levels of an application be changed while it runs: `qmrkctl signal` makes it read its class list again.
///
/// From its construction on, an object has a thread that waits for the system-wide named event "QMRK_LOG_EVENT".
/// Whenever a process sets the event (SetEvent, or `qmrkctl signal` on every platform), the thread calls
/// Quillmark_logging::updateLogLevels(), without a CA, then resets the event: a setting during the update is absorbed
/// by that reset. Processes of the same user (on Windows: of the same logon) share the event and all wake up. An
/// application that was set up for a named CA sets the environment variable DEFAULT_CA_NR to it.
///
/// **End.** The destructor gives the thread getThreadHandle() stands for 1000 ms to end, then terminates it with exit
/// code 1 (on Linux never in the middle of an update: it waits for that). A waiting thread does not end by itself. To
/// save the time, call setListenForEventState(false), set the event and wait for the thread before destroying the
/// object; the exit code is 0 then. Exit code 0xFFFFFFFF: the event could not be created. A terminated thread never
/// closes its event: the process stays a user of it, on Linux by one reference per name.
///
/// **Unloading.** On Linux the library stays loaded after dlclose, so the thread of an object that is still alive goes
/// on. On Windows destroy every object before FreeLibrary.
///
/// **Copies** share one thread handle. Each waits for the thread in its destructor and closes the handle, the second
/// one in vain. The thread works for the object that started it, which must outlive it.
///
/// **Failures.** An update that fails, for lack of memory too, is traced, and the thread goes on listening. The trace
/// (QMRK_TRACE of "GE" when the library was loaded) goes to std::cout and std::cerr.
///
/// **Threads.** Any thread may call the members; those that change the object, one at a time. setListenForEventState
/// and both setLogEventName may be called while the object's own thread runs. The library's threads block all signals.
class QMRK_LOG_API LogEventHandler {
 public:
  /// Starts the thread. If that fails, isCreated() is 0 and createWorkerThread may be called again.
  LogEventHandler();

  /// Copies every field, including the thread handle; starts nothing.
  LogEventHandler(const LogEventHandler& _other);
  /// Copies every field, including the thread handle; starts and stops nothing.
  LogEventHandler& operator=(const LogEventHandler& _other);

  /// Ends the thread as described above, and closes its handle.
  virtual ~LogEventHandler();

  /// Starts the thread.
  /// @return false, with nothing started, when the object has or had a thread, or when the system refuses.
  bool createWorkerThread();

  /// @return 1 when a thread was started, even if it has ended; else 0.
  int isCreated() const;

  /// @return the handle of the thread, owned by the object; null when none was started.
  Quillmark_logging::handle getThreadHandle() const;

  /// @return the system's id of the thread, known as soon as the constructor returns; 0 when none was started.
  Quillmark_logging::dword getThreadId() const;

  /// @return whether the thread goes on waiting after the next setting of the event.
  bool getListenForEventState() const;

  /// @param _listenForEventState false: the thread ends after the next setting, which still causes an update.
  void setListenForEventState(bool _listenForEventState);

  /// @return the name of the event. The thread reads it once, when it starts.
  const char* getLogEventName() const;

  /// Stores the pointer itself.
  /// @param _logEventName not null; the characters must outlive the object. On Windows what CreateEvent takes, 260
  ///   characters at most; on Linux 1 to 200 letters, digits, ".", "_" and "-", not beginning with ".": a thread that
  ///   is started with another name ends at once with exit code 0xFFFFFFFF.
  void setLogEventName(const char* _logEventName);

  /// Kept for compatibility; use the form above. Stores the address of the characters of its argument, which ends with
  /// the call: from then on the stored name DANGLES and must be neither read nor in place when a thread is started.
  void setLogEventName(std::string _logEventName);

 protected:
  /// Selects the constructor that starts no thread.
  enum StartLater {
    startLater  ///< The only value.
  };

  /// For a derived class that overrides listen4EventThread: starts no thread, and traces nothing. The derived class
  /// starts the thread as the last step of its own constructor:
  ///
  ///     MyHandler::MyHandler() : LogEventHandler(startLater), counter_(0) { createWorkerThread(); }
  ///
  /// With the default constructor the thread may run before the object is a MyHandler, and chance decides whether the
  /// override is called. An override that uses members of the derived class must have returned before those are
  /// destroyed, so end the thread in the destructor of the derived class.
  explicit LogEventHandler(StartLater _startLater);

  /// The body of the thread, called in the new thread. An exception derived from std::exception ends the thread with
  /// exit code 0xFFFFFFFF; any other ends the application. On Linux a thread is terminated only inside this class's
  /// wait for the event, whose stack is then unwound: an override that never returns, nor calls this one, makes the
  /// destructor wait for ever, and one that calls it must not swallow everything it catches.
  /// @param _argument null.
  /// @return the exit code of the thread.
  virtual Quillmark_logging::dword listen4EventThread(void* _argument);

 private:
  static int runProcess(void* _box);
  Quillmark_logging::handle createEvent(std::string _eventName);
  bool resetEvent(Quillmark_logging::handle _handle);
  bool closeHandle(Quillmark_logging::handle _handle);

  Quillmark_logging::handle threadHandle_;
  Quillmark_logging::dword threadId_;
  Quillmark_logging::dword timeout_;  // milliseconds
  const char* logEventName_;          // not owned
  bool listenForEventState_;
};

#endif
