/* A plain C program that only loads the library and calls its four functions. */
#include <dlfcn.h>
#include <stdio.h>
#include <string.h>

#include "tslm5/component/entry_points.h"

/* The first operations of every interface, in the order of their slots. */
struct object;
struct slots {
  int (*query_interface)(struct object*, const void*, void**);
  unsigned (*add_ref)(struct object*);
  unsigned (*release)(struct object*);
};
struct object {
  const struct slots* slots;
};

typedef int32_t (*get_class_object)(const void*, const void*, void**);
typedef int32_t (*plain_call)(void);

static void* Symbol(void* library, const char* name) {
  void* symbol = dlsym(library, name);
  if (symbol == NULL) printf("%s is missing\n", name);
  return symbol;
}

int main(int argc, char** argv) {
  const uint64_t class_id[2] = {0x54534c4d350000c1ULL, 0x8a1f4c0b6d2e73c1ULL};
  const uint64_t factory_id[2] = {0x54534c4d35000081ULL, 0x8a1f4c0b6d2e7381ULL};
  const uint64_t unknown_class[2] = {1, 2};
  void* library = argc == 2 ? dlopen(argv[1], RTLD_NOW) : NULL;
  void* object = NULL;
  get_class_object get;
  plain_call can_unload, enter, leave;
  if (library == NULL) return printf("not loaded\n"), 2;
  *(void**)&get = Symbol(library, "DllGetClassObject");
  *(void**)&can_unload = Symbol(library, "DllCanUnloadNow");
  *(void**)&enter = Symbol(library, "DllRegisterServer");
  *(void**)&leave = Symbol(library, "DllUnregisterServer");
  if (!get || !can_unload || !enter || !leave) return 2;

  printf("unload at first: %d\n", can_unload() == TSLM5_OK);
  printf("unknown class: %d\n", get(unknown_class, factory_id, &object) == TSLM5_CLASS_NOT_AVAILABLE);
  printf("class object: %d\n", get(class_id, factory_id, &object) == TSLM5_OK);
  printf("unload while it lives: %d\n", can_unload() == TSLM5_OK);
  ((struct object*)object)->slots->release((struct object*)object);
  printf("unload afterwards: %d\n", can_unload() == TSLM5_OK);
  printf("registered: %d\n", enter() == TSLM5_OK);
  printf("unregistered: %d\n", leave() == TSLM5_OK);
  return dlclose(library);
}
