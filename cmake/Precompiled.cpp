// Nothing: the target of Precompiled.h needs a file to compile.
