#!/usr/bin/env python3
"""Writes the winget manifests of a release and checks them against their schemas.

    make_winget.py --identity FILE.json --setup SETUP.exe --output FOLDER [--url ADDRESS]

ADDRESS is the folder from which the installer will be downloaded; without it a placeholder under a reserved name is
written. The folder gets the three files of a package of schema 1.6: version, installer and default locale.
"""

import argparse
import datetime
import hashlib
import json
import os
import pathlib
import sys

import jsonschema
import yaml

HERE = pathlib.Path(__file__).resolve().parent
SCHEMA_VERSION = "1.6.0"
LOCALE = "en-US"
PLACEHOLDER = "https://downloads.example/quillo"
# The installer's exit codes, as in quillo.nsi; 0 and the compiler's own 1 included.
RETURN_CODES = {1: "cancelledByUser", 2: "packageInUseByApplication", 3: "downgrade", 4: "diskFull",
                5: "systemNotSupported", 6: "installInProgress", 7: "fileInUse"}


def manifests(identity, setup, url):
    common = {"PackageIdentifier": identity["appId"], "PackageVersion": identity["version"]}
    released = datetime.datetime.fromtimestamp(int(os.environ["SOURCE_DATE_EPOCH"]), datetime.timezone.utc)
    address = f"{(url or PLACEHOLDER).rstrip('/')}/{setup.name}"
    return {
        "version": {**common, "DefaultLocale": LOCALE, "ManifestType": "version"},
        "installer": {
            **common,
            "Platform": ["Windows.Desktop"],
            "MinimumOSVersion": "6.1.0.0",
            "InstallerType": "nullsoft",
            "Scope": "user",
            "InstallModes": ["interactive", "silent"],
            "ExpectedReturnCodes": [{"InstallerReturnCode": code, "ReturnResponse": response}
                                    for code, response in RETURN_CODES.items()],
            "UpgradeBehavior": "install",
            "FileExtensions": ["qln"],
            "ProductCode": identity["name"],
            "ReleaseDate": released.strftime("%Y-%m-%d"),
            "Installers": [{
                "Architecture": "x64",
                "InstallerUrl": address,
                "InstallerSha256": hashlib.sha256(setup.read_bytes()).hexdigest().upper(),
            }],
            "ManifestType": "installer",
        },
        "defaultLocale": {
            **common,
            "PackageLocale": LOCALE,
            "Publisher": identity["publisher"],
            "PublisherUrl": identity["site"],
            "PackageName": identity["name"],
            "PackageUrl": f"{identity['site']}/quillo/",
            "License": identity["license"],
            "Copyright": identity["copyright"],
            "ShortDescription": identity["description"],
            "Moniker": identity["name"].lower(),
            "Tags": ["notes", "sticky-notes", "reminder"],
            "ManifestType": "defaultLocale",
        },
    }


def file_name(identifier, kind):
    parts = {"version": "", "installer": ".installer", "defaultLocale": f".locale.{LOCALE}"}
    return f"{identifier}{parts[kind]}.yaml"


def check(kind, text):
    """Fails if the written file does not match the schema when read again."""
    schema = json.loads((HERE / "winget" / f"{kind}.schema.json").read_text(encoding="utf-8"))
    # Dates remain texts, as in the schema.
    content = yaml.load(text, Loader=yaml.BaseLoader)
    validator = jsonschema.Draft7Validator(schema)
    found = [f"{'/'.join(map(str, error.absolute_path))}: {error.message}" for error in validator.iter_errors(content)]
    if found:
        raise ValueError(f"the manifest '{kind}' is not as winget wants it:\n" + "\n".join(found))


def main():
    parser = argparse.ArgumentParser(description=__doc__, formatter_class=argparse.RawDescriptionHelpFormatter)
    parser.add_argument("--identity", type=pathlib.Path, required=True)
    parser.add_argument("--setup", type=pathlib.Path, required=True)
    parser.add_argument("--output", type=pathlib.Path, required=True)
    parser.add_argument("--url", default="")
    arguments = parser.parse_args()
    identity = json.loads(arguments.identity.read_text(encoding="utf-8"))
    arguments.output.mkdir(parents=True, exist_ok=True)
    for kind, content in manifests(identity, arguments.setup, arguments.url).items():
        content["ManifestVersion"] = SCHEMA_VERSION
        text = yaml.safe_dump(content, sort_keys=False, allow_unicode=True, width=1000)
        check(kind, text)
        (arguments.output / file_name(identity["appId"], kind)).write_text(text, encoding="utf-8")


if __name__ == "__main__":
    try:
        main()
    except ValueError as error:
        sys.exit(f"make_winget: {error}")
