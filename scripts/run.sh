#!/usr/bin/env bash
# Sets up as scripts/setup.sh does, then prints every packed array that the
# store builds from the sample tuning file. Extra arguments go to
# `ovela-tune dump` (for example --json, --profile 3, --tuning speaker).
set -euo pipefail
cd "$(dirname "$0")/.."

# The build talks on stderr so that the arrays alone go to stdout.
scripts/setup.sh build >&2
exec build/tools/ovela-tune dump examples/qrn-default.xml "$@"
