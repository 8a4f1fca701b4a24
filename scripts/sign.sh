#!/usr/bin/env bash
# Signs Windows programs in place, if TAMARIND_SIGN_CERTIFICATE names a certificate with its key (a PKCS #12 file);
# else they stay as they are. Its password is in the file that TAMARIND_SIGN_PASSWORD_FILE names. A time stamp is asked
# of TAMARIND_SIGN_TIMESTAMP_URL; without one the time is SOURCE_DATE_EPOCH, so that the same input gives the same bytes.
set -euo pipefail
[ -n "${TAMARIND_SIGN_CERTIFICATE:-}" ] || exit 0
[ -r "$TAMARIND_SIGN_CERTIFICATE" ] || { echo "sign: cannot read $TAMARIND_SIGN_CERTIFICATE" >&2; exit 1; }
options=(-pkcs12 "$TAMARIND_SIGN_CERTIFICATE" -h sha256 -n Tamarind)
[ -z "${TAMARIND_SIGN_PASSWORD_FILE:-}" ] || options+=(-readpass "$TAMARIND_SIGN_PASSWORD_FILE")
if [ -n "${TAMARIND_SIGN_TIMESTAMP_URL:-}" ]; then
  options+=(-ts "$TAMARIND_SIGN_TIMESTAMP_URL")
else
  options+=(-time "$SOURCE_DATE_EPOCH")
fi
for file in "$@"; do
  osslsigncode sign "${options[@]}" -in "$file" -out "$file.signed" >/dev/null
  chmod --reference="$file" "$file.signed"
  mv "$file.signed" "$file"
done
