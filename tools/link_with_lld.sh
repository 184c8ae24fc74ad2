#!/bin/sh
# For the compiler's option -wrapper: links with LLVM's linker. Debian's cross compiler calls GNU's by an absolute path,
# so that neither -fuse-ld nor -B leads to another one.
case $1 in
*/collect2) shift; exec ld.lld "$@" ;;
*) exec "$@" ;;
esac
