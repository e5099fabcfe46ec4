#!/bin/sh
# Installs every Debian package that klo needs to build, test and benchmark.
# Idempotent: when everything is present it only checks and returns.
set -e
PACKAGES="build-essential cmake pkg-config git ca-certificates
  libgtest-dev libgmock-dev libbenchmark-dev
  coinor-libcoinutils-dev coinor-libclp-dev coinor-libcbc-dev coinor-libcgl-dev
  coinor-libosi-dev coinor-libipopt-dev libsdp-dev liblapack-dev libblas-dev
  zlib1g-dev libbz2-dev clang libclang-rt-14-dev
  coinor-libbonmin-dev coinor-clp coinor-cbc coinor-csdp
  libcairo2-dev fonts-dejavu-core python3 doxygen"

missing=""
for p in $PACKAGES; do
  if ! dpkg-query -W -f='${Status}' "$p" 2>/dev/null | grep -q "install ok installed"; then
    missing="$missing $p"
  fi
done
[ -z "$missing" ] && exit 0

echo "setup: installing$missing"
SUDO=""
[ "$(id -u)" -eq 0 ] || SUDO="sudo"
export DEBIAN_FRONTEND=noninteractive
$SUDO apt-get update -qq
$SUDO apt-get install -y -qq --no-install-recommends $missing
