/* A layer between a program and the system's file calls, at which the k-th call goes wrong. Only calls count
 * that are about files under one folder. Linked into a test program it is driven by arm_faults; loaded before
 * another program (LD_PRELOAD) by the environment: UNITLIB_FAULT_FOLDER=/folder  UNITLIB_FAULT="CALL KIND
 * [ERRNO]", for example "3 error 5" */
#ifndef UNITLIB_TESTS_FAULT_LAYER_H
#define UNITLIB_TESTS_FAULT_LAYER_H

#ifdef __cplusplus
extern "C" {
#endif

enum fault_kind {
  fault_error,      /* the call is not made and gives an error */
  fault_all_errors, /* so do all that follow: the disk is gone */
  fault_short,      /* a write takes half of what it is given, and so do all that follow */
  fault_nothing,    /* a write takes nothing */
  fault_kill,       /* SIGKILL before the call */
  fault_kill_after, /* SIGKILL right after it */
  fault_meanwhile   /* something else happens before the call: see arm_faults */
};

/* The call-th call (from 1) under folder goes wrong until disarm_faults. meanwhile is called, disarmed, for
 * fault_meanwhile. folder must stay. */
void arm_faults(const char* folder, long call, int kind, int error, void (*meanwhile)(void*), void* context);
/* The writes under folder have this much room altogether; then the disk is full. */
void arm_full_disk(const char* folder, long room);
/* The number of calls seen. */
long disarm_faults(void);
/* Their names in order, a blank behind each: the functions' own, and "create" (open for a new file),
 * "open_folder" and "fsync_folder". */
const char* calls_seen(void);
/* The name of the call that went wrong; empty when none has. */
const char* call_gone_wrong(void);

#ifdef __cplusplus
}
#endif

#endif
