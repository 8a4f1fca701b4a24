# With a certificate, here one of the test's own, the Windows programs are signed.
start_wine
certificate=$work/certificate
openssl req -x509 -newkey rsa:2048 -nodes -days 30 -subj '/CN=Tamarind test' -addext extendedKeyUsage=codeSigning \
  -keyout "$certificate.key" -out "$certificate.pem" 2>/dev/null
echo secret >"$certificate.password"
openssl pkcs12 -export -inkey "$certificate.key" -in "$certificate.pem" -passout "file:$certificate.password" \
  -out "$certificate.p12"
sign_all() { # certificate
  SOURCE_DATE_EPOCH=$(date +%s) TAMARIND_DIST=$work/signed TAMARIND_SIGN_CERTIFICATE=$1 \
    TAMARIND_SIGN_PASSWORD_FILE=$certificate.password ./scripts/dist.sh | tee "$work/dist.log"
}
is_signed() { osslsigncode verify -CAfile "$certificate.pem" -in "$1"; }
check "The packages are made with a certificate" sign_all "$certificate.p12"
check "It is told that they are signed" grep -q '^dist: signed with ' "$work/dist.log"
signed_setup=$work/signed/$(basename "$setup")
check "The setup is signed" is_signed "$signed_setup"
check "The one without a certificate is not" refuses is_signed "$setup"
in_wine "$signed_setup" /S '/D=C:\Signed'
for name in Tamarind tamarind-cli RouteSetup Uninstall; do
  check "$name.exe is signed" is_signed "$TAMARIND_WINEPREFIX/drive_c/Signed/$name.exe"
done
check "A signed program still runs" \
  is "$(in_wine "$TAMARIND_WINEPREFIX/drive_c/Signed/tamarind-cli.exe" --version | tr -d '\r')" "tamarind-cli $version"
tar -xzf "$work/signed/$(basename "$tar")" -C "$work/signed" "tamarind-$version/RouteSetup.exe"
check "The installer in the Linux packages is signed" is_signed "$work/signed/tamarind-$version/RouteSetup.exe"
check "A certificate that is missing is told, not passed over" refuses sign_all "$work/none.p12"
