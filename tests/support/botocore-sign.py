#!/usr/bin/python3
# Signs S3 PUT requests with botocore (Debian's python3-botocore), an
# independent implementation of Signature Version 4, for the tests to
# compare with ours. Reads a JSON list of cases on standard input, writes
# a JSON list of {"url", "authorization"} on standard output.
import datetime
import json
import sys
from unittest import mock

import botocore.session
from botocore.awsrequest import AWSResponse
from botocore.config import Config


class EmptyBody:
    def stream(self):
        return iter([b""])


def sign(case):
    session = botocore.session.get_session()
    client = session.create_client(
        "s3", region_name=case["region"], endpoint_url=case["endpoint"],
        aws_access_key_id=case["accessKeyId"], aws_secret_access_key=case["secret"],
        config=Config(signature_version="s3v4", s3={
            "addressing_style": "virtual" if case["virtualHosted"] else "path",
            "payload_signing_enabled": True}))
    seen = {}

    def drop_md5(request, **kwargs):
        # We send the SHA-256 of the body; botocore adds an MD5 besides.
        if "Content-MD5" in request.headers:
            del request.headers["Content-MD5"]

    def capture(request, **kwargs):
        seen["url"] = request.url
        seen["authorization"] = request.headers["Authorization"].decode() \
            if isinstance(request.headers["Authorization"], bytes) else request.headers["Authorization"]
        return AWSResponse(request.url, 200, {}, EmptyBody())

    client.meta.events.register("before-sign.s3.PutObject", drop_md5)
    client.meta.events.register("before-send.s3.PutObject", capture)
    when = datetime.datetime.strptime(case["amzDate"], "%Y%m%dT%H%M%SZ")
    with mock.patch("botocore.auth.datetime") as clock:
        clock.datetime.utcnow.return_value = when
        client.put_object(Bucket=case["bucket"], Key=case["key"], Body=case["body"].encode(),
                          ContentType=case["contentType"])
    return seen


json.dump([sign(case) for case in json.load(sys.stdin)], sys.stdout)
