#ifndef TSLM5_COMPONENT_ENTRY_POINTS_H_
#define TSLM5_COMPONENT_ENTRY_POINTS_H_

/** @file
 * What libTSLM5DataManager.so exports. Plain C: results are codes, nothing is thrown. */

#include <stdint.h>

#ifdef __cplusplus
extern "C" {
#endif

/** Done. */
#define TSLM5_OK 0
/** Done, and the answer is no. */
#define TSLM5_FALSE 1
/** Done, but a power loss may still undo it: the folder could not be synced. */
#define TSLM5_UNSYNCED 2
/** The class object is no such interface. */
#define TSLM5_NO_INTERFACE ((int32_t)0x80004002)
/** A pointer that is needed is null. */
#define TSLM5_NULL_POINTER ((int32_t)0x80004003)
/** Anything else, such as no memory. */
#define TSLM5_FAILED ((int32_t)0x80004005)
/** The library makes no such class. */
#define TSLM5_CLASS_NOT_AVAILABLE ((int32_t)0x80040111)
/** The registration file cannot be written or removed. */
#define TSLM5_REGISTRATION_FAILED ((int32_t)0x80040151)

/** Puts the class object of the class `class_id` into *object, as the interface `interface_id`
 * (IClassFactory or IUnknown), counted; both point to 16 bytes laid out as `tslm5::Uuid`.
 * On failure *object is null. */
__attribute__((visibility("default"))) int32_t DllGetClassObject(const void* class_id,
                                                                 const void* interface_id,
                                                                 void** object);

/** TSLM5_OK when no object of this library lives and no lock is held, so that it may be unloaded;
 * else TSLM5_FALSE. */
__attribute__((visibility("default"))) int32_t DllCanUnloadNow(void);

/** Registers the component with this library's path: writes its registration file
 * (tslm5/component/registration.h) whole, in place of an older one.
 * TSLM5_REGISTRATION_FAILED when the file cannot be written; an older one stands then.
 * TSLM5_UNSYNCED when it is written, but not yet safe from a power loss. */
__attribute__((visibility("default"))) int32_t DllRegisterServer(void);

/** Takes the component's registration file away. TSLM5_OK also when there is none;
 * TSLM5_REGISTRATION_FAILED when it cannot be removed, TSLM5_UNSYNCED as above. */
__attribute__((visibility("default"))) int32_t DllUnregisterServer(void);

#ifdef __cplusplus
}
#endif

#endif /* TSLM5_COMPONENT_ENTRY_POINTS_H_ */
