# SPDX-License-Identifier: MIT
"""bill_of_materials_test.py FILE: the document has what SPDX 2.3 requires, and names all that the product is made of."""

import json
import re
import sys
import unittest

DOCUMENT = json.load(open(sys.argv.pop(), encoding="utf-8"))
REQUIRED = ("spdxVersion", "dataLicense", "SPDXID", "name", "documentNamespace", "creationInfo")


class BillOfMaterials(unittest.TestCase):
    def test_has_the_fields_of_a_document(self):
        for field in REQUIRED:
            self.assertTrue(DOCUMENT[field], field)
        self.assertEqual("SPDX-2.3", DOCUMENT["spdxVersion"])
        self.assertEqual("CC0-1.0", DOCUMENT["dataLicense"])
        self.assertEqual("SPDXRef-DOCUMENT", DOCUMENT["SPDXID"])
        self.assertRegex(DOCUMENT["creationInfo"]["created"], r"^\d{4}-\d\d-\d\dT\d\d:\d\d:\d\dZ$")
        for creator in DOCUMENT["creationInfo"]["creators"]:
            self.assertRegex(creator, r"^(Organization|Tool|Person): \S")

    def test_has_the_fields_of_each_package(self):
        for package in DOCUMENT["packages"]:
            self.assertRegex(package["SPDXID"], r"^SPDXRef-[A-Za-z0-9.-]+$")
            for field in ("name", "versionInfo", "downloadLocation", "licenseConcluded", "licenseDeclared", "copyrightText"):
                self.assertTrue(package[field], package["name"] + " " + field)
            self.assertIs(False, package["filesAnalyzed"])
            self.assertFalse(re.search("@|NOTFOUND", json.dumps(package)), package)

    def test_relates_every_package_to_the_product(self):
        names = {package["SPDXID"] for package in DOCUMENT["packages"]}
        self.assertEqual(len(DOCUMENT["packages"]), len(names))
        related = {relation["relatedSpdxElement"] for relation in DOCUMENT["relationships"]}
        self.assertEqual(names, related)
        for relation in DOCUMENT["relationships"]:
            self.assertIn(relation["relationshipType"], ("DESCRIBES", "STATIC_LINK", "DYNAMIC_LINK"))

    def test_names_what_the_product_is_made_of(self):
        names = {package["name"] for package in DOCUMENT["packages"]}
        self.assertLessEqual({"qmrk_log", "Boost", "CLI11", "nlohmann_json", "gcc_runtime"}, names)


if __name__ == "__main__":
    unittest.main()
