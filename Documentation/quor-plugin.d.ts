// The globals of a plug-in, besides the language itself and the parameters of its run.

/** The response to a request. Has no members if `url` was not a URL. */
interface QuorResponse {
  /** The HTTP status; 0 if there was no response. */
  statusCode: number;
  /** The body; "" if it is missing, incomplete, too long or not UTF-8. */
  result: string;
  /** The headers, with names as the server writes them. Values of the same name are joined with ", ". */
  headers: Record<string, string>;
}

/** None of these functions throws. Paths are relative to the plug-in's folder; one that contains ".." is refused. */
interface QuorUtils {
  /** Removes a file, never a folder. */
  removeFile(path: string): void;
  /** Whether a file or folder of that path exists. */
  fileExists(path: string): boolean;
  /** Creates or replaces a file. If that fails, the old file stays. Does not create folders. */
  writeToFile(path: string, contents: string): void;
  /** Returns undefined if the file is missing or not UTF-8. */
  contentsOfFile(path: string): string | undefined;
  /** Encodes the text's UTF-8. */
  base64Encode(text: string): string;
  /** Returns "" if the text is not base64 of UTF-8. */
  base64Decode(text: string): string;
  /** Returns the translated text, or the key if there is none. */
  localize(key: string): string;
  /** Writes a value to the error log; arrays and objects as JSON of their enumerable members. Use log(String(error)). */
  log(value: unknown): void;
  /** Renders Markdown as HTML. Escapes nothing. */
  markdownToHTML(text: string): string;
  /** Sends a request and waits for the response, at most 60 seconds. */
  request(
    url: string,
    method: string,
    headers?: Record<string, string> | null,
    parameters?: Record<string, unknown> | null
  ): QuorResponse | Partial<QuorResponse>;
}

declare const utils: QuorUtils;
