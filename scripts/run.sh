#!/usr/bin/env bash
# Sets up as scripts/setup.sh does, then prints every packed array that the
# store builds from the sample tuning file. Extra arguments go to
# `ovela-tune dump` (for example --json, --profile 3, --tuning speaker).
set -euo pipefail
cd "$(dirname "$0")/.."

scripts/setup.sh build
exec build/tools/ovela-tune dump examples/qrn-default.xml "$@"
