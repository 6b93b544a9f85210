#!/usr/bin/python3
"""The peer of bench/upload: botocore, resident, putting the same PNG into the
same local S3 server with Signature Version 4 (path style, signed payload),
one upload at a time. Prints the median wall and CPU milliseconds."""
import statistics
import sys
import time

import botocore.config
import botocore.session

endpoint, path, runs = sys.argv[1], sys.argv[2], int(sys.argv[3])
body = open(path, "rb").read()
client = botocore.session.get_session().create_client(
    "s3", endpoint_url=endpoint, region_name="us-east-1",
    aws_access_key_id="S3RVER", aws_secret_access_key="S3RVER",
    config=botocore.config.Config(signature_version="s3v4",
                                  s3={"addressing_style": "path",
                                      "payload_signing_enabled": True}))
client.put_object(Bucket="shots", Key="bench/warm-up.png", Body=body, ContentType="image/png")
walls, cpus = [], []
for i in range(runs):
    wall, cpu = time.perf_counter(), time.process_time()
    client.put_object(Bucket="shots", Key=f"bench/peer {i}.png", Body=body,
                      ContentType="image/png")
    walls.append((time.perf_counter() - wall) * 1000)
    cpus.append((time.process_time() - cpu) * 1000)
print(f"{statistics.median(walls):.1f} {statistics.median(cpus):.1f}")
