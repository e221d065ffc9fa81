// SPDX-License-Identifier: MIT
// Errors of the module. An exception of C++ leaves it as a number, its address. Neither it nor an
// Error of a script gives back the stack that the functions used. Here every function of the
// package restores the stack and throws an Error with the text of the exception.

Module['onRuntimeInitialized'] = () => {
  const takeText = Module['takeText'];
  delete Module['takeText'];

  const call = (action) => {
    const top = stackSave();
    try {
      return action();
    } catch (error) {
      stackRestore(top);
      throw typeof error === 'number' ? new Error(takeText(error)) : error;
    }
  };
  const guarded = (f) => new Proxy(f, {
    apply: (_, self, args) => call(() => Reflect.apply(f, self, args)),
    construct: (_, args, made) => call(() => Reflect.construct(f, args, made)),
  });
  const guardAll = (owner) => {
    for (const name of Object.keys(owner)) {
      if (typeof owner[name] === 'function') owner[name] = guarded(owner[name]);
    }
  };

  for (const name of Object.keys(Module)) {
    if (!Object.hasOwn(Object(Module[name]), 'argCount')) continue; // not of the package
    guardAll(Module[name]);
    guardAll(Module[name].prototype ?? {});
    Module[name] = guarded(Module[name]);
  }
};
