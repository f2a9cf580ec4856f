#!/usr/bin/env bash
# Links with LLVM's linker instead of the one that is built into the cross compiler. The compiler starts it as a wrapper
# (-wrapper): link_with_lld.sh COLLECT2 ARGUMENT...
set -euo pipefail
shift
exec ld.lld "$@"
