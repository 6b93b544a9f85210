#!/usr/bin/python3
# s3rver parses Signature Version 4 but does not check it. This front does,
# as S3 itself would, with botocore (Debian's python3-botocore, an
# implementation independent of ours), and passes what it accepts on to
# s3rver untouched:
#   verify-sigv4.py PORT-OF-S3RVER ACCESS-KEY-ID SECRET
# Prints "listening on 127.0.0.1:PORT" once it listens. A request whose
# signature or payload hash is wrong gets S3's own 403 answer.
import hashlib
import http.client
import http.server
import re
import sys

from botocore.auth import S3SigV4Auth
from botocore.awsrequest import AWSRequest
from botocore.credentials import Credentials

upstream_port = int(sys.argv[1])
keys = {sys.argv[2]: sys.argv[3]}
AUTH = re.compile(r"AWS4-HMAC-SHA256 Credential=([^/]+)/(\d{8})/([^/]+)/s3/aws4_request, "
                  r"SignedHeaders=([a-z0-9;-]+), Signature=([0-9a-f]{64})$")


def error(code, message):
    return ("<?xml version=\"1.0\" encoding=\"UTF-8\"?>\n<Error><Code>%s</Code>"
            "<Message>%s</Message></Error>" % (code, message)).encode()


class Front(http.server.BaseHTTPRequestHandler):
    protocol_version = "HTTP/1.1"

    def log_message(self, *args):
        pass

    def answer(self, status, body, headers=()):
        self.send_response(status)
        for name, value in headers:
            self.send_header(name, value)
        self.send_header("Content-Length", str(len(body)))
        self.end_headers()
        self.wfile.write(body)

    def refusal(self):
        body = self.rfile.read(int(self.headers.get("Content-Length") or 0))
        match = AUTH.match(self.headers.get("Authorization") or "")
        if not match:
            return error("AccessDenied", "Anonymous or malformed requests are refused.")
        key_id, day, region, signed, signature = match.groups()
        if key_id not in keys:
            return error("InvalidAccessKeyId", "The access key id does not exist.")
        payload_hash = self.headers.get("x-amz-content-sha256")
        if payload_hash != hashlib.sha256(body).hexdigest():
            return error("XAmzContentSHA256Mismatch", "The payload hash does not match the body.")
        request = AWSRequest(method=self.command, url="http://%s%s" % (self.headers["Host"], self.path),
                             data=body,
                             headers={name: self.headers[name] for name in signed.split(";")})
        request.context["timestamp"] = self.headers.get("x-amz-date") or ""
        auth = S3SigV4Auth(Credentials(key_id, keys[key_id]), "s3", region)
        canonical = auth.canonical_request(request)
        expected = auth.signature(auth.string_to_sign(request, canonical), request)
        if expected != signature:
            return error("SignatureDoesNotMatch",
                         "The request signature we calculated does not match the signature you "
                         "provided. Canonical request: " + canonical.replace("\n", "\\n"))
        self.body = body
        return None

    def forward(self):
        refused = self.refusal()
        if refused:
            self.answer(403, refused, [("Content-Type", "application/xml")])
            return
        connection = http.client.HTTPConnection("127.0.0.1", upstream_port)
        headers = {name: value for name, value in self.headers.items() if name.lower() != "host"}
        headers["Host"] = self.headers["Host"]
        connection.request(self.command, self.path, body=self.body or None, headers=headers)
        response = connection.getresponse()
        body = response.read()
        self.answer(response.status, body,
                    [(n, v) for n, v in response.getheaders()
                     if n.lower() not in ("content-length", "transfer-encoding", "connection")])

    do_GET = do_PUT = do_DELETE = do_HEAD = forward


server = http.server.ThreadingHTTPServer(("127.0.0.1", 0), Front)
print("listening on 127.0.0.1:%d" % server.server_address[1], flush=True)
server.serve_forever()
